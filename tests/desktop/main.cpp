#include <gtest/gtest.h>

#include <QByteArray>
#include <QtGlobal>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  return RUN_ALL_TESTS();
}

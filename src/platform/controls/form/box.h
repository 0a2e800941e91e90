#pragma once

namespace platform {

/// Style numbers of message boxes: buttons + icon + default button.
namespace box {
inline constexpr int OkOnly = 0;
inline constexpr int YesNo = 4;
inline constexpr int Stop = 16;
inline constexpr int Question = 32;
inline constexpr int Exclamation = 48;
inline constexpr int Information = 64;
inline constexpr int SecondButtonDefault = 256;
/// Answers.
inline constexpr int Ok = 1;
inline constexpr int Cancel = 2;
inline constexpr int Yes = 6;
inline constexpr int No = 7;
}  // namespace box

}  // namespace platform

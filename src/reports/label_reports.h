#pragma once

#include <string>

/// The reports of the catalogue that are sheets of labels, known by their files.
namespace orcussch {

bool IsLabelReport(const std::string& File);
/// Those whose order the user chooses.
bool IsMailingLabels(const std::string& File);
/// The label at which a run starts: a whole number from 1 to the sheet's last.
int FirstLabelOf(const std::string& File, double Wanted);

}  // namespace orcussch

#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "model/dive_template.h"
#include "persist/format_faults.h"

namespace tav {

/// The comment lines of a template block: what a dive knows beyond the keys stands in lines "# Name=value", which every
/// other reader of the format passes over. The names that this program knows are one table in the source. A line of
/// theirs that is wrong is told and passed over, unless it changes the schedule: then it is an error. Lines of other
/// names, and those passed over, are kept in `DiveTemplate::Comments` and written again; comments without "=" are not.
class CommentLines {
 public:
  CommentLines(DiveTemplate& diveTemplate, FormatFaults& faults);

  /// Takes in a line that begins with "#". Lines of a name stand in place of what the record held under this name.
  /// Returns it where the record took the value in, else nothing.
  std::string_view Read(std::string_view line, int number);

  /// What can be done only when the block is read.
  void Finish();

 private:
  DiveTemplate& template_;
  FormatFaults& faults_;
  std::vector<std::string> before_;         // kept by the record
  std::set<std::string, std::less<>> met_;  // names of this block
  std::set<std::string, std::less<>> read_;
  std::vector<int> cylinderLines_;
  int lines_ = 0;
};

/// The lines to write, without their ends: those of the names that are known first.
std::vector<std::string> WriteCommentLines(const DiveTemplate& diveTemplate);

}  // namespace tav

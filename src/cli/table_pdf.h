#pragma once

#include <string>

#include "cli/page_output.h"
#include "tables/table_print.h"

namespace tav {

/// Tables on paper: the pages of a run of tavplan, and the PDF that is drawn of them at its end.
class TablePdf {
 public:
  /// `caption` names the plan of a bail-out. Throws FileError when the texts can't be read.
  TablePdf(const ProgramFolders& folders, const std::string& file, const std::string& caption)
      : output_(folders, file), print_(output_.Pages(), caption) {
    print_.StartTableOutput();
  }

  void Print(const TableDives& dives) { print_.PrintTableSet(dives); }
  /// Throws std::runtime_error, whose text is one line that names the file.
  void Write(const std::string& title) {
    print_.EndTableOutput();
    output_.WritePdf(title);
  }

 private:
  PageOutput output_;
  TablePrintModule print_;
};

}  // namespace tav

#include <map>

#include "cli/row_columns.h"
#include "cli/usage_texts.h"
#include "model/number_text.h"

namespace tav {
namespace {

constexpr const char* kHead = R"(.TH TAVPLAN 1 "" "TAV )" TAV_VERSION R"(" "User Commands"
.SH NAME
tavplan \- decompression planning on the command line
.SH SYNOPSIS
)";

constexpr const char* kDescription = R"(.B tavplan
.RI [ COMMAND ]
.B \-\-help
.br
.B tavplan \-\-version
.SH DESCRIPTION
.B tavplan
computes the decompression of dives planned with TAV: ZH-L16 with gradient factors, VPM, or the hybrid of both, on open
circuit or a constant-PPO2 rebreather.
.PP
A plan is an aid for trained divers. No model removes the risk of decompression sickness.
.PP
A command never writes over a file that it reads, whichever link leads to it;
.B edit
alone may save a plan over its own file.
Work that takes long shows on a terminal how far it is, and Ctrl+C ends it; no half file stays.
.SH OPTIONS
.TP
.B \-\-help
Print the commands, or the options and examples of a command, and end.
.TP
.B \-\-version
Print the version and end.
.TP
.B \-\-manual-page
Print this page in the language of
.BR man (1)
and end.
.TP
.B \-\-bash-completion
Print the completion of words for
.BR bash (1)
and end.
.SH COMMANDS
)";

constexpr const char* kFoot = R"(.SH EXIT STATUS
.TP
.B 0
All is well.
.TP
.B 1
A plan does not decompress: a stop never clears on the gas breathed there.
.TP
.B 2
The input can't be used, a fill is not possible, or an output can't be written, standard output included; a line on
standard error names file, line and reason.
.TP
.B 130
Ended by Ctrl+C.
.SH ENVIRONMENT
.TP
.BR LC_ALL ", " LC_MESSAGES ", " LANG
The language of texts and errors, unless the language dialog of
.BR tav (1)
has chosen one; English for a language that is not there. JSON and CSV are English unless
.B \-\-language
is given, and numbers have a decimal point.
.SH FILES
.TP
.I template/Default.tpl
The default settings, in the user's data folder
.RI ( $XDG_DATA_HOME/tav
or
.IR ~/.local/share/tav )
if it is there, else in the program's.
.SH SEE ALSO
.BR tav (1)
)";

/// Text that man shows as it is.
std::string Plain(const std::string& text) {
  return ReplaceAll(ReplaceAll(ReplaceAll(text, "\\", "\\e"), "-", "\\-"), "\n", "\n.PP\n");
}

/// An item of a list with its text; the head is bold.
std::string Item(const std::string& head, const std::string& text) {
  return ".TP\n.B " + Plain(head) + "\n" + Plain(text) + "\n";
}

std::string Examples(const std::string& examples) {
  return ".PP\n.nf" + ReplaceAll(ReplaceAll(examples, "\\", "\\e"), "-", "\\-") + ".fi\n";
}

}  // namespace

std::string ManualPage(const std::vector<Command>& commands) {
  std::string page = kHead;
  for (const Command& command : commands) {
    page += ".B tavplan " + command.name + "\n" + Plain(UsageOf(command)) + "\n.br\n";
  }
  page += kDescription;
  std::map<std::string, std::string> told;  // the text of an option, and the command that tells it
  for (const Command& command : commands) {
    page += ".SS " + command.name + "\n" + Plain(command.details) + "\n";
    std::map<std::string, std::string> asFor;  // options that another command has told
    for (const Option& option : command.options) {
      const auto [known, added] = told.try_emplace(HeadOf(option) + option.text, command.name);
      if (added) {
        page += Item(HeadOf(option), option.text + ".");
      } else {
        std::string& heads = asFor[known->second];
        heads += (heads.empty() ? "" : ", ") + HeadOf(option);
      }
    }
    for (const auto& [other, heads] : asFor) page += Item(heads, "As for " + other + ".");
    page += Examples(command.examples);
  }
  page += ".SH ROWS\nThe figures of a row, with the names that they have in JSON and CSV.\n";
  for (const RowColumn& column : RowColumns()) page += Item(column.name, std::string(column.unit) + ".");
  return page +
         Item("percent_compartments",
              "the 16 loads, fractions of the M-values at the surface; percent_1 to "
              "percent_16 in CSV.") +
         kFoot;
}

}  // namespace tav

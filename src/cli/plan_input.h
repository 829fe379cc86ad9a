#pragma once

#include <cstdint>
#include <exception>
#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/document_store.h"
#include "persist/profile_file.h"
#include "persist/text_file.h"
#include "platform/text_source.h"
#include "start/program_folders.h"

namespace tav {

/// An option that can't be used.
class OptionError : public MessageError {
 public:
  explicit OptionError(Message reason) : MessageError("", std::move(reason)) {}
};

/// Says in one line why a command can't do its work, with its name ahead where an option is to blame.
int Refused(const std::exception& error, std::string_view command, const TextSource& texts, std::ostream& err);

/// Throws FileError when the output is the file that is read: it is of another kind. Links are followed.
void RefuseOwnInput(const std::string& input, const std::string& output);

/// Says what a save could not keep of the file that was there.
void TellNotes(const std::filesystem::path& file, const SaveNotes& notes, const TextSource& texts, std::ostream& err);

/// The number of an option. Throws OptionError, which names the option, for a text that is none.
Single NumberOf(const std::string& text, const std::string& option);

/// The same, from `least` to `most`; throws OptionError with these bounds for a number outside.
Single NumberOf(const std::string& text, const std::string& option, double least, double most);

/// The same, whole.
int WholeNumberOf(const std::string& text, const std::string& option, int least, int most);

/// The document that --dive names, from 1; the last for an empty text. Throws OptionError.
std::int16_t ChosenDive(const std::string& text, const std::vector<std::int16_t>& documents);

/// The same; all of them for an empty text.
std::vector<std::int16_t> ChosenDives(const std::string& text, const std::vector<std::int16_t>& documents);

/// What a reader found in a file, a line for each: "FILE:LINE: ...", advice with that word ahead.
void TellFaults(const std::string& file, const std::vector<FormatFault>& faults, const TextSource& texts,
                std::ostream& out);

/// Reads a profile and refuses one that can't be planned. Throws FileError with the line to mend; what is odd in a file
/// that can is told on `err`.
ProfileText ReadPlannable(const std::string& file, const TextSource& texts, std::ostream& err);

/// Makes element 0 of the store the settings that a command starts from: those of the template that --template names, a
/// file or a name in the template folder, over the program's own values, or of the default one for an empty name.
/// Throws FileError with the line to mend; what is odd in the file, and which keys it lacks, is told on `err`.
void StartSettings(DocumentStore& documents, const std::string& name, const ProgramFolders& folders,
                   const TextSource& texts, std::ostream& err);

/// The number of a gas in the template's list (GasNamed); one that only its name tells (EAN36, Tx15/60, H85) is added.
/// Throws OptionError for a name that says nothing.
std::int16_t MixNumber(const std::string& name, DiveTemplate& diveTemplate);

}  // namespace tav

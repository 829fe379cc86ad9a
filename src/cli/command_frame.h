#pragma once

#include <cstddef>
#include <deque>
#include <exception>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command.h"
#include "cli/commands.h"
#include "cli/opened_plan.h"
#include "cli/trace_writer.h"
#include "start/user_texts.h"

namespace tav {

/// What the commands share: texts, the computing session, inputs, the one door to outputs, marks, and the exit status
/// that comes of all that. What is wrong goes to standard error, in a line "FILE:LINE: REASON" each.
class CommandFrame {
 public:
  /// `progress`: standard error is a terminal, on which long work shows how far it is.
  CommandFrame(const Command& command, const ProgramFolders& folders, std::ostream& out, std::ostream& err,
               bool progress);
  CommandFrame(const CommandFrame&) = delete;
  CommandFrame& operator=(const CommandFrame&) = delete;

  /// Does the command's work, and returns the exit status.
  int Run();

  [[nodiscard]] const ProgramFolders& Folders() const { return folders_; }
  /// The texts of the user.
  [[nodiscard]] const TextSource& Texts() const { return texts_; }
  /// The texts of what programs read, which is English unless --language tells another.
  [[nodiscard]] const TextSource& DataTexts() const { return dataTexts_; }
  [[nodiscard]] const CommonOptions& Common() const { return *command_.common; }

  // Inputs.
  /// The settings to start from: those of the template that --template names, a file or a name in the template folder,
  /// over the program's own values, or of the default one for an empty name. Throws FileError with the line to mend;
  /// what is odd in the file, and which keys it lacks, is told.
  DiveTemplate Settings(const std::string& templateName);
  /// Reads a profile. Throws FileError with the line to mend where it can't be planned; what is odd in a file that can
  /// is told.
  std::vector<DiveRecord> ReadPlan(const std::string& file);
  /// The same, but that what is odd is for the caller to tell.
  static std::vector<DiveRecord> ReadPlan(const std::string& file, std::vector<FormatFault>& odd);
  /// Reads and computes it.
  OpenedPlan& OpenPlan(const std::string& file);
  /// Computes dives that are to be those of a file.
  OpenedPlan& Compute(const std::string& file, std::vector<DiveRecord> records);
  /// The dive that --dive names, from 1, as an index; the last for an empty text. Throws OptionError.
  static std::size_t OneDive(const std::string& number, const OpenedPlan& plan);
  /// The same; all of them for an empty text.
  static std::vector<std::size_t> Dives(const std::string& number, const OpenedPlan& plan);

  // What is computed.
  [[nodiscard]] const ModelChoice& Model() const { return Common().model; }
  /// Takes down the trace of each run of the engine, where it is asked for.
  EngineObserver& Observer() { return trace_; }
  /// Throws FileError where a dive of a file could not be computed; one that does not decompress is marked.
  void CheckComputed(const OpenedPlan& plan, std::size_t dive);

  // Outputs.
  std::ostream& Out() { return out_; }
  std::ostream& Err() { return err_; }
  /// Lets `save` write a file as a whole, and tells what it could not keep. Throws FileError.
  void Save(const std::string& file, const std::function<SaveNotes()>& save);
  /// Throws FileError for an output that is one of the files that the command has read or is going to read, whatever
  /// link leads to it. Every output passes it.
  void RefuseInput(const std::filesystem::path& output) const;
  /// Where long work shows how far it is; null for nowhere.
  [[nodiscard]] std::ostream* Terminal() { return progress_ ? &err_ : nullptr; }

  // Marks.
  /// A plan of the command does not decompress.
  void MarkDecompression(bool decompresses) {
    if (!decompresses) Mark(ExitStatus::kDoesNotDecompress);
  }
  /// Says in one line why something can't be done, with the command's name ahead where an option is to blame.
  void Tell(const std::exception& error);
  /// A line about a file.
  void Tell(const std::string& file, const std::string& words);
  /// What a reader found in a file: "FILE:LINE: ...", advice with that word ahead.
  [[nodiscard]] std::string FaultWords(const std::string& file, const FormatFault& fault) const;
  /// The same of each, in lines.
  void TellFaults(const std::string& file, const std::vector<FormatFault>& faults);
  /// The status becomes at least that.
  void Mark(int status) { status_ = std::max(status_, status); }

 private:
  std::filesystem::path TemplateFile(const std::string& name) const;
  /// So that what is told of it stands behind the output on a terminal; an output that fails is told.
  void FlushOut();
  /// Knows the inputs, refuses an output over one of them, and takes the common options.
  void Begin();

  const Command& command_;
  const ProgramFolders& folders_;
  std::ostream& out_;
  std::ostream& err_;
  bool progress_;
  LazyTexts texts_;
  LazyTexts dataTexts_;
  TraceWriter trace_;
  std::deque<OpenedPlan> opened_;  // a deque, because references to elements outlive its growth
  std::vector<std::filesystem::path> inputs_;
  int status_ = ExitStatus::kFine;
};

}  // namespace tav

#include "cli/page_output.h"

#include <array>
#include <clocale>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <langinfo.h>
#include <memory>
#include <optional>
#include <pwd.h>
#include <spawn.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <type_traits>
#include <unistd.h>
#include <utility>

#include "model/number_text.h"
#include "model/text_id.h"
#include "pages/page_player.h"
#include "persist/text_file.h"
#include "picture/svg_surface.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

/// The desktop program: beside this one, else on the search path.
std::string DesktopProgram() {
  std::error_code error;
  const fs::path beside = fs::read_symlink("/proc/self/exe", error).parent_path() / "tav";
  return fs::exists(beside, error) ? beside.string() : "tav";
}

struct Ended {
  int status = -1;     ///< -1 when it could not be started
  std::string errors;  ///< what it wrote to its error output
};

/// A program that runs beside this one; it is ended when nobody waits for it to the end.
class Child {
 public:
  Child(const std::string& program, std::vector<std::string> arguments) {
    std::vector<char*> words;
    words.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
    errors_ = ends[0];
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
    if (::posix_spawnp(&child_, program.c_str(), &actions, nullptr, words.data(), environ) != 0) child_ = 0;
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child() {
    if (errors_ != -1) ::close(errors_);
    if (child_ == 0) return;
    ::kill(child_, SIGTERM);
    ::waitpid(child_, nullptr, 0);
  }

  /// Waits for its end; `told` is called as it writes errors, with all of them.
  Ended Wait(const std::function<void(const std::string&)>& told) {
    Ended ended;
    if (child_ == 0) return ended;
    std::array<char, 4096> part{};
    for (ssize_t got = 0; (got = ::read(errors_, part.data(), part.size())) > 0;) {
      ended.errors.append(part.data(), static_cast<std::size_t>(got));
      told(ended.errors);
    }
    int status = 0;
    if (::waitpid(child_, &status, 0) == child_) {
      constexpr int kKilled = 128;
      ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : kKilled + WTERMSIG(status);
    }
    child_ = 0;
    return ended;
  }

 private:
  int errors_ = -1;
  pid_t child_ = 0;
};

/// The page that the desktop program told last: "page 3 of 40" in a line of its own.
std::optional<std::array<int, 2>> PageIn(const std::string& errors) {
  const std::string start = "page ";
  const std::size_t at = errors.rfind(start);
  if (at == std::string::npos || errors.find('\n', at) == std::string::npos) return std::nullopt;
  std::istringstream words(errors.substr(at + start.size()));
  std::array<int, 2> page{};
  std::string of;
  if (!(words >> page[0] >> of >> page[1])) return std::nullopt;
  return page;
}

/// The line in which the desktop program told why it failed; empty for none.
std::string ReasonIn(const std::string& errors) {
  const std::string start = "tav: ";
  const std::size_t at = errors.rfind(start);
  if (at == std::string::npos) return {};
  const std::size_t from = at + start.size();
  return errors.substr(from, errors.find('\n', from) - from);
}

/// The date as the locale of the environment writes it, with all four digits of the year; by ISO 8601 where there is no
/// such locale, or none that is plain.
std::string DateText(const std::tm& date) {
  const std::string day = FormatZeroFilled(date.tm_mday, 2);
  const std::string month = FormatZeroFilled(date.tm_mon + 1, 2);
  const std::string year = std::to_string(date.tm_year + 1900);
  std::string iso = year + "-" + month + "-" + day;
  const std::unique_ptr<std::remove_pointer_t<locale_t>, decltype(&::freelocale)> own(
      ::newlocale(LC_TIME_MASK, "", nullptr), ::freelocale);
  std::string text = own ? ::nl_langinfo_l(D_FMT, own.get()) : "%";
  if (text == "%m/%d/%y") return iso;  // that of the locale "C" is American, whoever reads it
  for (const auto& [field, value] : {std::pair{"%-d", std::to_string(date.tm_mday)},
                                     {"%-m", std::to_string(date.tm_mon + 1)},
                                     {"%d", day},
                                     {"%m", month},
                                     {"%Y", year},
                                     {"%y", year}}) {
    text = ReplaceAll(text, field, value);
  }
  return text.find('%') == std::string::npos ? text : iso;
}

std::string Numbered(const std::string& name, char between, int number, const char* behind = "") {
  return name + between + std::to_string(number) + behind;
}

}  // namespace

std::string PageOutput::Machine::UserName() const {
  const passwd* user = ::getpwuid(::geteuid());  // NOLINT(concurrency-mt-unsafe): there is one thread
  return user == nullptr || user->pw_name == nullptr ? std::string() : user->pw_name;
}

std::string PageOutput::Machine::Today() const {
  const std::time_t now = std::time(nullptr);
  const std::tm* local = std::localtime(&now);  // NOLINT(concurrency-mt-unsafe)
  return DateText(*local);
}

fs::path PageOutput::Machine::TemporaryFolder() const {
  std::error_code error;
  return fs::temp_directory_path(error);
}

std::string PageOutput::Machine::Logo() const {
  try {
    return ReadTextFile(logo_);
  } catch (const FileError&) {
    return {};
  }
}

PageOutput::PageOutput(CommandFrame& frame, fs::path out)
    : frame_(frame),
      out_(std::move(out)),
      texts_(frame.Texts()),
      machine_(frame.Folders().ProgramFolder() / "logo.svg"),
      pages_(PageServices{boxes_, machine_, {}}, texts_) {
  frame.RefuseInput(out_);
}

void PageOutput::CheckPages(const fs::path& file) const {
  const auto& fault = pages_.Pages().Fault();
  if (fault) throw FileError(file, 0, texts_.Words(*fault));
  if (!boxes_.first.empty()) throw FileError(file, 0, boxes_.first);
}

void PageOutput::WriteSvg(const std::string& prefix, const std::string& title, LongWork& work) const {
  const PageFile& pages = pages_.Pages();
  const PagePlayer player(pages);
  for (int page = 1; page <= pages.Pages(); ++page) {
    const std::string file = Numbered(prefix, '-', page, ".svg");
    CheckPages(file);
    const PageSize size = player.SizeOf(page);
    SvgSurface surface(size.width, size.height);
    player.tempshow(page, surface, 1);
    frame_.Save(file, [&] {
      return WriteTextFile(file, surface.File(Numbered(title, ' ', page), "", SvgSurface::Unit::PageMillimetre));
    });
    work.Step(page, pages.Pages());
  }
}

void PageOutput::WritePdf(const std::string& title, LongWork& work) const {
  CheckPages(out_);
  const Ended ended = Child(DesktopProgram(), {"tav", "--pages", pages_.Pages().Path().string(), "--pdf",
                                               fs::absolute(out_).string(), "--title", title})
                          .Wait([&](const std::string& errors) {
                            if (const auto page = PageIn(errors)) work.Step((*page)[0], (*page)[1]);
                          });
  constexpr int kNotFound = 127;
  if (ended.status == -1 || ended.status == kNotFound) {
    throw FileError(out_, 0, Text::PdfNotStarted);
  }
  if (ended.status == ExitStatus::kInterrupted) throw Interrupted();  // Ctrl+C reaches both programs
  if (ended.status == 0) return;
  const std::string reason = ReasonIn(ended.errors);
  if (reason.empty()) throw FileError(out_, 0, Text::PdfNotDrawn);
  throw std::runtime_error(reason);
}

}  // namespace tav

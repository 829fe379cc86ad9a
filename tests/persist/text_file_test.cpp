#include "persist/text_file.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <thread>
#include <unistd.h>

#include "model/text_id.h"
#include "support/english.h"
#include "support/scratch_folder.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

void PutBytes(const fs::path& file, const std::string& bytes) { std::ofstream(file, std::ios::binary) << bytes; }

std::size_t FilesIn(const fs::path& folder) {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

/// Runs in a process of its own, which may give up rights or be killed.
pid_t Fork(const std::function<int()>& run) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(run());
  return child;
}

int ExitCode(pid_t child) {
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(ReadTextFile, TakesWhatIsNotUtf8AsWindows1252) {
  const std::pair<const char*, const char*> texts[] = {{"H\xF6hle 40 \x80", "H\u00F6hle 40 \u20AC"},
                                                       {"H\u00F6hle", "H\u00F6hle"},
                                                       {"\xEF\xBB\xBFH\u00F6hle", "H\u00F6hle"},
                                                       {"\U0001F3CA", "\U0001F3CA"},
                                                       {"\x93"
                                                        "a\x94\x81",
                                                        "\u201Ca\u201D\u0081"},
                                                       {"\xC0\xAF", "\u00C0\u00AF"},            // overlong
                                                       {"\xED\xA0\x80", "\u00ED\u00A0\u20AC"},  // surrogate
                                                       {"\xF4\x90\x80\x80", "\u00F4\u0090\u20AC\u20AC"},
                                                       {"cut \xE2\x82", "cut \u00E2\u201A"},
                                                       {"", ""}};
  const test::ScratchFolder folder;
  for (const auto& [bytes, text] : texts) {
    PutBytes(folder.Path() / "a", bytes);
    EXPECT_EQ(ReadTextFile(folder.Path() / "a"), text);
  }
}

// The edges of each length: what is valid stays, all else is read byte by byte.
TEST(ToUtf8, KnowsTheEdgesOfEachSequence) {
  const char* valid[] = {"\x7F",         "\xC2\x80",     "\xDF\xBF",         "\xE0\xA0\x80",    "\xED\x9F\xBF",
                         "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"};
  for (const std::string text : valid) EXPECT_EQ(ToUtf8(text), text);
  const char* invalid[] = {"\x80",
                           "\xBF",
                           "\xC1\xBF",
                           "\xC2\x7F",
                           "\xC2\xC0",
                           "\xDF",
                           "\xE0\x9F\xBF",
                           "\xED\xA0\x80",
                           "\xED\xBF\xBF",
                           "\xE1\x7F\x80",
                           "\xE1\x80\xC0",
                           "\xEF\xBF",
                           "\xEF\xC0\xBF",
                           "\xF0\x8F\xBF\xBF",
                           "\xF1\x7F\x80\x80",
                           "\xF1\x80\xC0\x80",
                           "\xF1\x80\x80\x7F",
                           "\xF1\x80\x80",
                           "\xF4\x90\x80\x80",
                           "\xF5\x80\x80\x80",
                           "\xFF"};
  for (const std::string text : invalid) {
    const std::string read = ToUtf8(text);
    EXPECT_GT(read.size(), text.size()) << testing::PrintToString(text);
    EXPECT_EQ(ToUtf8(read), read) << testing::PrintToString(text);
  }
}

TEST(ReadTextFile, TellsWhyItCannot) {
  const test::ScratchFolder folder;
  const auto reason = [](const fs::path& file) -> std::string {
    try {
      ReadTextFile(file);
    } catch (const FileError& error) {
      return test::English().Words(error);
    }
    return "read";
  };
  EXPECT_EQ(reason("/none.tav"), "/none.tav: can't be opened: No such file or directory");
  EXPECT_EQ(reason("/"), "/: can't be read: Is a directory");
  PutBytes(folder.Path() / "huge", "");
  fs::resize_file(folder.Path() / "huge", 65U * 1024 * 1024);
  EXPECT_THAT(reason(folder.Path() / "huge"), HasSubstr("is larger than 64 MiB"));
}

TEST(WriteTextFile, KeepsWhatTheFileHasAndTellsWhatItCannot) {
  constexpr uid_t kOther = 4711;
  const struct {
    const char* what;
    uid_t saves;
    uid_t owner;
    gid_t group;
    mode_t mode;
    bool otherName;
    mode_t modeThen;
    std::vector<int> notes;
  } cases[] = {
      {"by its owner", kOther, kOther, kOther, 0640, false, 0640, {}},
      {"by an administrator", 0, kOther, kOther, 0664, false, 0664, {}},
      {"by another of its group", kOther + 1, kOther, kOther, 0664, false, 0664, {Text::SavedOtherOwner}},
      {"by anyone", kOther + 2, kOther, kOther, 0676, false, 0666, {Text::SavedOtherOwner, Text::SavedOtherGroup}},
      {"that has another name", kOther, kOther, kOther, 0600, true, 0600, {Text::SavedOtherNames}},
  };
  if (::geteuid() != 0) GTEST_SKIP() << "only an administrator can make files of others";
  for (const auto& known : cases) {
    SCOPED_TRACE(known.what);
    const test::ScratchFolder folder;
    ::chmod(folder.Path().c_str(), 0777);
    const fs::path file = folder.Path() / "plan.tav";
    PutBytes(file, "old");
    ASSERT_EQ(::chown(file.c_str(), known.owner, known.group), 0);
    ASSERT_EQ(::chmod(file.c_str(), known.mode), 0);
    if (known.otherName) fs::create_hard_link(file, folder.Path() / "other.tav");
    EXPECT_EQ(ExitCode(Fork([&] {
                const gid_t own = known.saves == kOther + 1 ? gid_t{kOther} : gid_t{known.saves};
                if (known.saves != 0 && (::setgroups(0, nullptr) != 0 || ::setgid(own) != 0)) return 2;
                if (known.saves != 0 && ::setuid(known.saves) != 0) return 2;
                std::vector<int> notes;
                for (const Message& note : WriteTextFile(file, "new")) notes.push_back(note.text);
                return notes == known.notes ? 0 : 1;
              })),
              0);
    struct stat now {};
    ASSERT_EQ(::stat(file.c_str(), &now), 0);
    const bool told = !known.notes.empty() && !known.otherName;
    EXPECT_EQ(now.st_uid, told ? known.saves : known.owner);
    EXPECT_EQ(now.st_gid, known.notes.size() == 2 ? gid_t{known.saves} : known.group);
    EXPECT_EQ(now.st_mode & 07777U, known.modeThen);
    EXPECT_EQ(ReadTextFile(file), "new");
    if (known.otherName) {
      EXPECT_EQ(ReadTextFile(folder.Path() / "other.tav"), "old");
    }
  }
}

TEST(WriteTextFile, KeepsAttributes) {
  const test::ScratchFolder folder;
  const fs::path file = folder.Path() / "plan.tav";
  WriteTextFile(file, "old");
  if (::setxattr(file.c_str(), "user.dive", "deep", 4, 0) != 0) GTEST_SKIP() << "the disk knows none";
  EXPECT_TRUE(WriteTextFile(file, "new").empty());
  std::string value(8, '\0');
  EXPECT_EQ(::getxattr(file.c_str(), "user.dive", value.data(), value.size()), 4);
  EXPECT_THAT(value, testing::StartsWith("deep"));
}

TEST(WriteTextFile, FollowsLinksAndReplacesNone) {
  const test::ScratchFolder folder;
  const auto link = [&](const char* name, const char* to) { fs::create_symlink(to, folder.Path() / name); };
  const fs::path file = folder.Path() / "plan.tav";
  WriteTextFile(file, "old");
  link("to plan", "to link");
  link("to link", "plan.tav");
  link("to nothing", "none.tav");
  link("one", "other");
  link("other", "one");
  const struct {
    const char* name;
    const char* refused;
  } cases[] = {{"to plan", ""},
               {"to nothing", "is a link to none.tav, which is not there; nothing was written"},
               {"one", "is a link that leads round in a circle; nothing was written"}};
  for (const auto& known : cases) {
    SCOPED_TRACE(known.name);
    std::string refused;
    try {
      WriteTextFile(folder.Path() / known.name, "new");
    } catch (const FileError& error) {
      refused = test::English().Words(error);
    }
    EXPECT_THAT(refused, testing::EndsWith(known.refused));
    EXPECT_EQ(refused.empty(), *known.refused == '\0');
    EXPECT_TRUE(fs::is_symlink(folder.Path() / known.name));
  }
  EXPECT_EQ(ReadTextFile(file), "new");
  EXPECT_EQ(FilesIn(folder.Path()), 6U);
}

TEST(WriteTextFile, LeavesTheOldFileWhenItIsRefused) {
  const test::ScratchFolder folder;
  const fs::path file = folder.Path() / "plan.tav";
  WriteTextFile(file, "old");
  ::chmod(folder.Path().c_str(), 0555);
  const auto refused = [&](const std::string& text) {
    try {
      WriteTextFile(file, text);
      return 1;
    } catch (const FileError&) {
      return 0;
    }
  };
  EXPECT_EQ(ExitCode(Fork([&] {
              if (::geteuid() == 0 && ::setuid(65534) != 0) return 2;
              return refused("new");
            })),
            0)
      << "in a folder that can't be written";
  ::chmod(folder.Path().c_str(), 0755);
  EXPECT_EQ(ExitCode(Fork([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              const rlimit limit{4096, 4096};
              if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 2;
              return refused(std::string(5000, 'x'));
            })),
            0)
      << "on a disk that is full";
  EXPECT_EQ(ReadTextFile(file), "old");
  EXPECT_EQ(FilesIn(folder.Path()), 1U);
  EXPECT_THROW(WriteTextFile(folder.Path(), "new"), FileError);
  EXPECT_THROW(WriteTextFile(folder.Path() / "none" / "plan.tav", "new"), FileError);
  EXPECT_THROW(WriteTextFile("/dev/full", "new"), FileError);
}

TEST(WriteTextFile, KilledAtAnyInstantLeavesOneOfBothTexts) {
  const test::ScratchFolder folder;
  const fs::path file = folder.Path() / "plan.tav";
  const std::string texts[] = {std::string(300000, 'a'), std::string(200000, 'b')};
  WriteTextFile(file, texts[0]);
  for (int n = 0; n < 40; ++n) {
    const pid_t writer = Fork([&] {
      for (std::size_t i = 0;; ++i) WriteTextFile(file, texts[i % 2]);
      return 0;
    });
    std::this_thread::sleep_for(std::chrono::microseconds(500 + n * 311 % 7000));
    ::kill(writer, SIGKILL);
    EXPECT_EQ(ExitCode(writer), -1);
    const std::string text = ReadTextFile(file);
    ASSERT_TRUE(text == texts[0] || text == texts[1]) << text.size() << " bytes";
  }
}

TEST(WriteTextFile, TakesAwayWhatKilledSavesLeftAndNothingElse) {
  const test::ScratchFolder folder;
  const fs::path file = folder.Path() / "plan.tav";
  const auto left = [&] { return FilesIn(folder.Path()); };
  for (int n = 0; n < 200 && left() < 3; ++n) {
    const pid_t writer = Fork([&] {
      while (true) WriteTextFile(folder.Path() / ("plan" + std::to_string(n) + ".tav"), std::string(1000000, 'a'));
      return 0;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(3));
    ::kill(writer, SIGKILL);
    ExitCode(writer);
    fs::remove(folder.Path() / ("plan" + std::to_string(n) + ".tav"));
    // All of one name, whoever left them.
    for (const auto& entry : fs::directory_iterator(folder.Path())) {
      const std::string name = entry.path().filename().string();
      if (!name.starts_with("plan.tav"))
        fs::rename(entry, folder.Path() / ("plan.tav" + name.substr(name.find(".tav") + 4)));
    }
  }
  ASSERT_EQ(left(), 3U) << "kills while writing leave files";
  for (const char* name : {"plan.tav.backup", "other.tav.saving-aB3xYz"}) PutBytes(folder.Path() / name, "mine");
  WriteTextFile(file, "new");
  EXPECT_EQ(left(), 3U);
  EXPECT_EQ(ReadTextFile(file), "new");
  RemoveUnfinishedSaves(folder.Path(), "");
  EXPECT_EQ(left(), 2U);
  EXPECT_TRUE(fs::exists(folder.Path() / "plan.tav.backup"));
}

TEST(WriteTextFile, TwoProcessesAtOnceDoNotDisturbEachOther) {
  const test::ScratchFolder folder;
  const fs::path file = folder.Path() / "plan.tav";
  const auto saves = [&] {
    for (int n = 0; n < 60; ++n) WriteTextFile(file, std::string(1000, 'a'));
    return 0;
  };
  const pid_t other = Fork([&] {
    try {
      return saves();
    } catch (const FileError&) {
      return 1;
    }
  });
  EXPECT_NO_THROW(saves());
  EXPECT_EQ(ExitCode(other), 0);
  EXPECT_EQ(FilesIn(folder.Path()), 1U);
}

}  // namespace
}  // namespace tav

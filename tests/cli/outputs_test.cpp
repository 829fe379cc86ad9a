// Where the output of the program goes, and what it never writes over: the program itself, as a shell starts it.
#include <map>
#include <sys/wait.h>

#include "cli/tavplan_fixture.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

struct Ended {
  int status;
  std::string out, err;
};

class Outputs : public Tavplan {
 protected:
  void SetUp() override {
    program_ = fs::read_symlink("/proc/self/exe").parent_path() / "tavplan";
    fs::copy_file(Dive("wreck.tav"), Scratch("a.tav"));
    fs::copy_file(Dive("air-no-stop.tav"), Scratch("quiet.tav"));
    fs::copy_file(SourceFolder() / "template/Default.tpl", Scratch("my.tpl"));
    WriteTextFile(Scratch("legs.csv"), "30,20,Air\n");
    fs::create_symlink("a.tav", Scratch("link.tav"));
    fs::create_hard_link(Scratch("a.tav"), Scratch("name.tav"));
    fs::create_directory(Scratch("sub"));
  }

  /// A line of a shell in the scratch folder, "tavplan" being the program; 124 where it takes longer than that.
  [[nodiscard]] Ended Shell(const std::string& line) const {
    const std::string script = "cd " + scratch_.Path().string() + "; tavplan() { timeout 20 " + program_.string() +
                               " \"$@\"; }; set -o pipefail; ( " + line + " ) >sub/out 2>sub/err";
    const int status = std::system(("bash -c '" + script + "'").c_str());  // NOLINT
    return {WEXITSTATUS(status), ReadTextFile(Scratch("sub/out")), ReadTextFile(Scratch("sub/err"))};
  }

  /// The files of the scratch folder with what is in them.
  [[nodiscard]] std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(scratch_.Path())) {
      if (entry.is_regular_file()) files[entry.path().filename()] = ReadTextFile(entry.path());
    }
    return files;
  }

  fs::path program_;
};

TEST_F(Outputs, NeverGoOverAnInput) {
  fs::copy_file(Dive("wreck.tav"), Scratch("phi.log"));
  fs::create_directories(scratch_.Path() / "sub/tav/template");
  fs::copy_file(Scratch("my.tpl"), Scratch("sub/tav/template/Default.tpl"));
  const auto before = Files();
  const struct {
    const char* line;
    const char* output;
  } cases[] = {
      {"tavplan report a.tav --pdf a.tav", "a.tav"},
      {"tavplan report link.tav --pdf a.tav", "a.tav"},
      {"tavplan report a.tav --slate --pdf link.tav", "link.tav"},
      {"tavplan bailout a.tav --pdf name.tav", "name.tav"},
      {"tavplan whatif a.tav --pdf ./sub/../a.tav", "./sub/../a.tav"},
      {"tavplan compare link.tav link.tav --pdf a.tav", "a.tav"},
      {"tavplan tables --gas Air --depths 9:12:3 --times 5:10:5 --template my.tpl --pdf my.tpl", "my.tpl"},
      {"tavplan new --depth 30 --time 20 --template my.tpl -o my.tpl", "my.tpl"},
      {"XDG_DATA_HOME=$PWD/sub tavplan new --depth 30 --time 20 -o sub/tav/template/Default.tpl",
       "sub/tav/template/Default.tpl"},
      {"tavplan import legs.csv -o legs.csv", "legs.csv"},
      {"tavplan import legs.csv --template my.tpl -o my.tpl", "my.tpl"},
      {"tavplan export a.tav --uddf link.tav", "link.tav"},
      {"tavplan plan --phi a.tav phi.log", "phi.log"},
  };
  for (const auto& [line, output] : cases) {
    const Ended ended = Shell(line);
    EXPECT_EQ(ended.status, ExitStatus::kUnusableInput) << line;
    EXPECT_EQ(ended.err, std::string(output) + ": this is the file that is read; give another one to write\n") << line;
    EXPECT_EQ(ended.out, "") << line;
  }
  EXPECT_EQ(Files(), before);
  EXPECT_EQ(ReadTextFile(Scratch("sub/tav/template/Default.tpl")), ReadTextFile(Scratch("my.tpl")));
}

TEST_F(Outputs, AreOneFileEach) {
  const Ended ended = Shell("tavplan new --depth 30 --time 20 --phi -o ./phi.log");
  EXPECT_EQ(ended.status, ExitStatus::kUnusableInput);
  EXPECT_EQ(ended.err, "./phi.log: this is the trace that is being written; give another file\n");
}

TEST_F(Outputs, TellWhenTheyFail) {
  for (const char* command :
       {"plan a.tav", "plan --json a.tav", "plan --csv quiet.tav", "new --depth 30 --time 20", "bailout a.tav",
        "bailout --json a.tav", "whatif a.tav", "tables --gas Air --depths 9:12:3 --times 5:10:5", "check a.tav",
        "mix --have 21/0@1 --want 32/0@200", "--help", "plan --help", "--version", "--manual-page"}) {
    for (const char* where : {" >/dev/full", " >&-", " | true"}) {
      const std::string line = "( sleep 0.1; tavplan " + std::string(command) + " )" + where;
      const Ended ended = Shell(line);
      EXPECT_EQ(ended.status, ExitStatus::kUnusableInput) << line;
      EXPECT_THAT(ended.err, StartsWith("standard output can't be written: ")) << line;
      EXPECT_EQ(std::ranges::count(ended.err, '\n'), 1) << line << ended.err;
    }
  }
  fs::create_symlink("/dev/full", Scratch("phi.log"));
  const Ended trace = Shell("tavplan plan --phi a.tav");
  EXPECT_EQ(trace.status, ExitStatus::kUnusableInput);
  EXPECT_THAT(trace.err, StartsWith("phi.log: can't be written: "));
}

TEST_F(Outputs, GoNowhereElseWhereAStandardStreamIsClosed) {
  const Ended ended = Shell("tavplan plan --json --phi a.tav >&-");
  EXPECT_EQ(ended.status, ExitStatus::kUnusableInput);
  EXPECT_THAT(ReadTextFile(Scratch("phi.log")), StartsWith("\""));
  for (const char* closed : {" <&-", " 2>&-", " <&- 2>&-"}) {
    const Ended fine = Shell("tavplan plan --json --phi a.tav" + std::string(closed));
    EXPECT_EQ(fine.status, ExitStatus::kFine) << closed;
    EXPECT_EQ(fine.out, Shell("tavplan plan --json a.tav").out);
  }
}

TEST_F(Outputs, APipeThatNobodyWritesToIsNotWaitedFor) {
  EXPECT_EQ(Shell("mkfifo pipe.tav pipe.tpl pipe.csv").status, 0);
  for (const char* line : {"plan pipe.tav", "check pipe.tav", "report pipe.tav --pdf x.pdf", "import pipe.csv -o x.tav",
                           "new --depth 30 --time 20 --template pipe.tpl"}) {
    const Ended ended = Shell(std::string("tavplan ") + line);
    EXPECT_EQ(ended.status, ExitStatus::kUnusableInput) << line;
    EXPECT_THAT(ended.err, HasSubstr(": a pipe that nobody writes to\n")) << line;
  }
  // One that is written to is read to its end, however slowly that comes.
  const Ended slow = Shell("tavplan plan <(head -c 500 a.tav; sleep 0.3; tail -c +501 a.tav)");
  EXPECT_EQ(slow.status, ExitStatus::kFine) << slow.err;
  EXPECT_THAT(slow.out, HasSubstr("Run time "));
}

const std::string kManyTables = "tables --gas EAN32 --depths 9:54:1 --times 1:200:1";

TEST_F(Outputs, CtrlCEndsLongWorkWithoutHalfAFile) {
  for (const std::string& line : {kManyTables + " --pdf x.pdf", kManyTables + " --json"}) {
    const auto before = Files();
    // Qt makes itself a folder among the temporary files where it is given none.
    const Ended ended = Shell("export TMPDIR=$PWD/sub XDG_RUNTIME_DIR=$PWD; timeout -s INT 0.5 " + program_.string() +
                              " " + line + " >/dev/null; echo $?; ls sub");
    EXPECT_EQ(ended.out, "124\nerr\nout\n") << line << ended.err;
    EXPECT_EQ(ended.err, "");
    EXPECT_EQ(Files(), before);
  }
}

TEST_F(Outputs, LongWorkShowsOnATerminalHowFarItIs) {
  const Ended ended = Shell("script -qc \"timeout --foreground -s INT 4 " + program_.string() + " " + kManyTables +
                            " --json >/dev/null\" /dev/null");
  EXPECT_THAT(ended.out, testing::ContainsRegex("\r.\\[K[0-9]+ / 9200"));
  EXPECT_THAT(ended.out, testing::EndsWith("\r\x1B[K")) << "nothing of it stays";
}

}  // namespace
}  // namespace tav

// Saves killed at every step and at random moments, and two people saving the same project at
// once: the project's name always holds a whole state, no backup is lost, the next open tidies up
// or offers the newer state back, and exactly one of two editors writes.
#include "core/document/DocTestSupport.h"
#include "document/SafeSave.h"

#include <chrono>
#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace velto {

using namespace doctest;

namespace {

// The random moments spread over one save as long as this build takes for it; under the
// sanitizers a save takes about twenty times as long, so fewer kills cover it as densely.
#ifdef __SANITIZE_ADDRESS__
constexpr int kRandomKills = 40;
#else
constexpr int kRandomKills = 300;
#endif

// A project of about a megabyte, so that a save takes long enough to be killed inside its writes.
std::string LargeProjectBytes(const std::string& rootTitle) {
    ProjectContent content;
    content.firstNode = new CProjectNode();
    content.firstNode->m_strTitle = rootTitle;
    CProjectNode* last = content.firstNode;
    for (int i = 0; i < 2000; ++i) {
        auto* node = new CProjectNode();
        node->m_nLevel = 1;
        node->m_bSelected = 0;
        node->m_strTitle = "Knoten " + std::to_string(i);
        node->m_strNote = std::string(500, char('a' + i % 26));
        node->m_pPrev = last;
        last = last->m_pNext = node;
    }
    const std::vector<uint8_t> bytes = WriteProject(content);
    return {bytes.begin(), bytes.end()};
}

class SaveCrashTest : public TempDirTest {
protected:
    SaveCrashTest() : m_new(LargeProjectBytes("neu")) {}

    void PutOldStates() {
        for (const std::string& name : Names())
            std::filesystem::remove(PathOf(name));
        WriteFile(project, m_old);
        for (int i = 0; i < kBackupCount; ++i)
            WriteFile(BackupFilePath(project, i), ProjectBytes("alt" + std::to_string(i)));
    }

    // Runs the save in a child process; `arm` prepares its file system (to kill it at a step).
    // Returns the child's wait status.
    template <class Arm, class AfterFork> int SaveInChild(Arm arm, AfterFork afterFork) {
        const pid_t child = fork();
        if (child == 0) {
            FaultyFileSystem fs;
            arm(fs);
            SaveWithBackups(fs, project, [&](const PieceWriter& put) { put(Bytes(m_new)); });
            _exit(0);
        }
        afterFork(child);
        int status = 0;
        waitpid(child, &status, 0);
        return status;
    }

    // What the next open finds: the old or the new state whole, and after the open (which repairs
    // and takes a whole newer state back) one of the two complete backup rows.
    void ExpectNothingLost(const std::string& when) {
        SCOPED_TRACE(when);
        const std::string before = RootTitleIn(project);
        ASSERT_TRUE(before == "gut" || before == "neu") << before;

        ScriptedPrompter prompter;
        prompter.Answer(PromptAnswer::Yes);
        {
            CVeltoDoc doc(prompter, "Arial", 12, nullptr, "Anna");
            ASSERT_TRUE(doc.OnOpenDocument(project));
            EXPECT_TRUE(doc.OnCloseDocument());
        }
        const std::string after = RootTitleIn(project);
        std::vector<std::string> expected;
        if (after == "neu")
            expected = {"gut", "alt0", "alt1", "alt2", "alt3"};
        else
            expected = {"alt0", "alt1", "alt2", "alt3", "alt4"};
        EXPECT_TRUE(after == "neu" || (before == "gut" && after == "gut"));
        for (int i = 0; i < kBackupCount; ++i)
            EXPECT_EQ(RootTitleIn(BackupFilePath(project, i)), expected[size_t(i)]) << i;
        EXPECT_EQ(Names().size(), 1u + kBackupCount) << "left over: " << ::testing::PrintToString(Names());
    }

    const std::string m_old = LargeProjectBytes("gut");
    const std::string m_new;
    std::string project = PathOf("Plan.VT5");
};

TEST_F(SaveCrashTest, KilledAtEveryStep) {
    for (int step = 0;; ++step) {
        PutOldStates();
        const int status = SaveInChild(
            [&](FaultyFileSystem& fs) {
                int count = 0;
                fs.before = [=](Op, const std::string&) mutable {
                    if (count++ == step)
                        raise(SIGKILL);
                };
            },
            [](pid_t) {});
        ExpectNothingLost("killed before step " + std::to_string(step));
        if (WIFEXITED(status))
            break; // the save ran to its end: every step has been cut
        ASSERT_TRUE(WIFSIGNALED(status));
        ASSERT_LT(step, 200);
    }
}

TEST_F(SaveCrashTest, KilledAtRandomMoments) {
    PutOldStates();
    const auto start = std::chrono::steady_clock::now();
    SaveInChild([](FaultyFileSystem&) {}, [](pid_t) {});
    const auto saveTime =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
    std::mt19937 random(20261123);
    std::uniform_int_distribution<int64_t> moment(0, saveTime.count() + 500);
    for (int round = 0; round < kRandomKills; ++round) {
        PutOldStates();
        const int64_t delay = moment(random);
        SaveInChild([](FaultyFileSystem&) {},
                    [&](pid_t child) {
                        usleep(useconds_t(delay));
                        kill(child, SIGKILL);
                    });
        ExpectNothingLost("killed after " + std::to_string(delay) + " µs");
        if (HasFailure())
            return;
    }
}

// ---- Two editors ----

void Signal(int fd) {
    const char byte = 1;
    ASSERT_EQ(write(fd, &byte, 1), 1);
}
void Await(int fd) {
    char byte = 0;
    ASSERT_EQ(read(fd, &byte, 1), 1);
}

struct Pipe {
    int ends[2] = {-1, -1};
    Pipe() { EXPECT_EQ(pipe(ends), 0); }
    ~Pipe() {
        close(ends[0]);
        close(ends[1]);
    }
};

// Opens the project as `name` (answering the read-only question with yes), waits, saves its own
// title, waits, closes. Exit code 0 when its save went through.
[[noreturn]] void RunEditor(const std::string& project, const std::string& name, int ready, int go) {
    ScriptedPrompter prompter;
    prompter.Answer(PromptAnswer::Yes);
    bool saved = false;
    {
        CVeltoDoc doc(prompter, "Arial", 12, nullptr, name);
        const bool opened = doc.OnOpenDocument(project);
        Signal(ready);
        Await(go);
        if (opened) {
            doc.m_pFirstNode->m_strTitle = name;
            saved = doc.OnSaveDocument(project);
        }
        Signal(ready);
        Await(go);
        doc.OnCloseDocument();
    }
    _exit(saved ? 0 : 1);
}

TEST_F(SaveCrashTest, OfTwoEditorsSavingAtOnceExactlyOneWrites) {
    for (int round = 0; round < 20; ++round) {
        for (const std::string& name : Names())
            std::filesystem::remove(PathOf(name));
        WriteFile(project, ProjectBytes("gut"));
        // One go pipe per editor, so that a quick editor cannot take the other's go.
        Pipe ready, go[2];
        std::vector<pid_t> editors;
        for (int i : {0, 1}) {
            const pid_t child = fork();
            if (child == 0)
                RunEditor(project, i == 0 ? "Anna" : "Bert", ready.ends[1], go[i].ends[0]);
            editors.push_back(child);
        }
        for (int phase = 0; phase < 2; ++phase) {
            Await(ready.ends[0]);
            Await(ready.ends[0]);
            Signal(go[0].ends[1]);
            Signal(go[1].ends[1]);
        }
        std::vector<std::string> writers;
        for (size_t i = 0; i < editors.size(); ++i) {
            int status = 0;
            waitpid(editors[i], &status, 0);
            ASSERT_TRUE(WIFEXITED(status));
            if (WEXITSTATUS(status) == 0)
                writers.push_back(i == 0 ? "Anna" : "Bert");
        }
        ASSERT_EQ(writers.size(), 1u) << "round " << round;
        EXPECT_EQ(RootTitleIn(project), writers[0]);
        EXPECT_EQ(RootTitleIn(BackupFilePath(project, 0)), "gut");
        EXPECT_EQ(Names(), (std::vector<std::string>{"Plan.BK0", "Plan.VT5"}));
    }
}

} // namespace

} // namespace velto

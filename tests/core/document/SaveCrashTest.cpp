// Saves killed before every step, and two people saving the same project at once: the project's
// name always holds a whole state, no backup is lost, the next open tidies up or offers the newer
// state back, and exactly one of two editors writes.
#include "core/document/DocTestSupport.h"
#include "document/SafeSave.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace velto {

using namespace doctest;

namespace {

class SaveCrashTest : public TempDirTest {
protected:
    void PutOldStates() {
        for (const std::string& name : Names())
            std::filesystem::remove(PathOf(name));
        WriteFile(project, m_old);
        for (int i = 0; i < kBackupCount; ++i)
            WriteFile(BackupFilePath(project, i), ProjectBytes("alt" + std::to_string(i)));
    }
    // Runs the save in a child process that is killed before its file system step `killAtStep`.
    // Returns the child's wait status.
    int SaveInChild(int killAtStep) {
        const pid_t child = fork();
        if (child == 0) {
            FaultyFileSystem fs;
            fs.before = [killAtStep, count = 0](Op, const std::string&) mutable {
                if (count++ == killAtStep)
                    raise(SIGKILL);
            };
            SaveWithBackups(fs, project, [&](const PieceWriter& put) { put(Bytes(m_new)); });
            _exit(0);
        }
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
            EXPECT_EQ(doc.m_pFirstNode->m_strTitle, RootTitleIn(project))
                << "a state taken back is the one shown";
            EXPECT_FALSE(doc.IsModified());
            EXPECT_TRUE(doc.OnCloseDocument());
        }
        for (const ScriptedPrompter::Asked& asked : prompter.asked())
            EXPECT_EQ(asked.caption, "Wiederherstellen?");
        const std::string after = RootTitleIn(project);
        EXPECT_TRUE(after == "neu" || (before == "gut" && after == "gut"));
        const int shift = after == "neu"; // the new state moves every backup one place down
        for (int i = 0; i < kBackupCount; ++i)
            EXPECT_EQ(RootTitleIn(BackupFilePath(project, i)),
                      i < shift ? "gut" : "alt" + std::to_string(i - shift));
        EXPECT_EQ(Names().size(), 1u + kBackupCount) << "left over: " << ::testing::PrintToString(Names());
    }
    // The old and the new state, about a megabyte each.
    const std::string m_old = ProjectBytes("gut", 2000, 500);
    const std::string m_new = ProjectBytes("neu", 2000, 500);
    std::string project = PathOf("Plan.VT5");
};

TEST_F(SaveCrashTest, KilledAtEveryStep) {
    for (int step = 0;; ++step) {
        PutOldStates();
        const int status = SaveInChild(step);
        ExpectNothingLost("killed before step " + std::to_string(step));
        if (WIFEXITED(status))
            break; // the save ran to its end: every step has been cut
        ASSERT_TRUE(WIFSIGNALED(status));
        ASSERT_LT(step, 200);
    }
}

// ---- Two editors ----

void Signal(int fd) {
    ASSERT_EQ(write(fd, "1", 1), 1);
}
void Await(int fd) {
    char byte = 0;
    ASSERT_EQ(read(fd, &byte, 1), 1);
}

struct Pipe {
    int ends[2] = {-1, -1};
    Pipe() { EXPECT_EQ(pipe(ends), 0); }
    ~Pipe() { close(ends[0]), close(ends[1]); }
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
        const char* const names[] = {"Anna", "Bert"};
        pid_t editors[2];
        for (int i : {0, 1})
            if ((editors[i] = fork()) == 0)
                RunEditor(project, names[i], ready.ends[1], go[i].ends[0]);
        for (int phase = 0; phase < 2; ++phase) {
            Await(ready.ends[0]);
            Await(ready.ends[0]);
            Signal(go[0].ends[1]);
            Signal(go[1].ends[1]);
        }
        std::vector<std::string> writers;
        for (int i : {0, 1}) {
            int status = 0;
            waitpid(editors[i], &status, 0);
            ASSERT_TRUE(WIFEXITED(status));
            if (WEXITSTATUS(status) == 0)
                writers.push_back(names[i]);
        }
        ASSERT_EQ(writers.size(), 1u) << "round " << round;
        EXPECT_EQ(RootTitleIn(project), writers[0]);
        EXPECT_EQ(RootTitleIn(BackupFilePath(project, 0)), "gut");
        EXPECT_EQ(Names(), (std::vector<std::string>{"Plan.BK0", "Plan.VT5"}));
    }
}

} // namespace

} // namespace velto

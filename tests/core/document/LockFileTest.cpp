// The names beside a project, the lock record, and reading and writing whole files.
#include "core/document/DocTestSupport.h"

#include <cerrno>
#include <tuple>

namespace velto {

using namespace doctest;
using namespace std::string_literals;

namespace {

TEST(ProjectFileNames, DerivedFromThePathUpToTheExtension) {
    EXPECT_EQ(LockFilePath("/daten/Plan.VT5"), "/daten/Plan.~~~");
    EXPECT_EQ(BackupFilePath("/daten/Plan.v2.VT5", 4), "/daten/Plan.v2.BK4");
    EXPECT_EQ(LockFilePath("/daten.alt/Plan"), "/daten.alt/Plan.~~~") << "a dot in a folder is no extension";
    EXPECT_EQ(BackupFilePath("Plan", 0), "Plan.BK0");
}

// Readers that stop at the first zero see the name alone; host and process id follow it. An
// overlong name is cut so that its zero still ends inside the record.
TEST(LockRecord, HoldsTheNameInWindows1252ThenHostAndProcess) {
    EXPECT_EQ(Text(LockRecord("Jürgen", "pc-3", 815)), "J\xFCrgen\0pc-3\0"s + "815" + std::string(241, '\0'));
    EXPECT_EQ(Text(LockRecord(std::string(300, 'x'), "pc-3", 815)), std::string(255, 'x') + '\0');
}

class LockOwnerTest : public TempDirTest {
protected:
    LockOwner Owner(std::string_view content) {
        WriteFile(lock, content);
        LockOwner owner;
        EXPECT_EQ(ReadLockOwner(fs, lock, owner), 0);
        return owner;
    }
    PosixFileSystem fs;
    std::string lock = PathOf("Plan.~~~");
};

TEST_F(LockOwnerTest, ReadsTheNameOverTheQuestionMarksAndTheOwnerBehindIt) {
    EXPECT_EQ(Owner("").user, "???");
    EXPECT_EQ(Owner("A").user, "A??"); // read over the placeholder, as always
    EXPECT_EQ(Owner("J\xFCrgen").user, "Jürgen");
    EXPECT_EQ(Owner(std::string(1000, 'z')).user, std::string(256, 'z'));
    const LockOwner foreign = Owner(LockOf("Bert"));
    EXPECT_EQ(std::tuple(foreign.user, foreign.host, foreign.IsLeftOver()), std::tuple("Bert", "", false));
    const LockOwner ours = Owner(Text(LockRecord("Bert", "pc-3", 815)));
    EXPECT_EQ(std::tuple(ours.user, ours.host, ours.processId, ours.IsLeftOver()),
              std::tuple("Bert", "pc-3", 815, true));
    EXPECT_FALSE(Owner("Bert\0pc-3\0"s + "8x5").IsLeftOver()) << "not ours: the number is no number";
}

TEST_F(LockOwnerTest, AHeldLockIsLiveAndOnlyItsHolderRemovesIt) {
    ProjectLock held(fs);
    ASSERT_EQ(held.Create(lock, OwnLockRecord("Anna")), 0);
    LockOwner owner;
    ASSERT_EQ(ReadLockOwner(fs, lock, owner), 0);
    EXPECT_EQ(std::tuple(owner.held, owner.IsLeftOver()), std::tuple(true, false));
    ProjectLock second(fs);
    EXPECT_EQ(second.Create(lock, OwnLockRecord("Bert")), -EEXIST);
    EXPECT_EQ(second.TakeOver(lock, OwnLockRecord("Bert")), -EAGAIN);
    // Replaced behind its back, the lock file is no longer ours and stays.
    std::filesystem::remove(lock);
    WriteFile(lock, LockOf("Bert"));
    EXPECT_FALSE(held.IsStillOurs());
    held.Release();
    EXPECT_EQ(ReadFile(lock), LockOf("Bert"));
    ASSERT_EQ(second.TakeOver(lock, OwnLockRecord("Carla")), 0);
    EXPECT_EQ(ReadFile(lock), OwnLockOf("Carla"));
    second.Release();
    EXPECT_FALSE(Exists(lock));
}

// A share without a lock manager: no advisory locks at all.
class NoLockFileSystem : public PosixFileSystem {
public:
    int TryLock(int) override { return -ENOLCK; }
    int IsLockedByOther(int) override { return -ENOLCK; }
};

TEST_F(LockOwnerTest, WithoutAdvisoryLocksTheLockFileStillWorksAndNeverLooksLeftOver) {
    NoLockFileSystem share;
    ProjectLock held(share);
    ASSERT_EQ(held.Create(lock, OwnLockRecord("Anna")), 0);
    LockOwner owner;
    ASSERT_EQ(ReadLockOwner(share, lock, owner), 0);
    EXPECT_EQ(std::tuple(owner.user, owner.IsLeftOver()), std::tuple("Anna", false));
}

// Hands out at most a few bytes per call, as pipes and network file systems may.
class TrickleFileSystem : public PosixFileSystem {
public:
    ssize_t Read(int fd, void* buffer, size_t size) override {
        return PosixFileSystem::Read(fd, buffer, std::min<size_t>(size, 7));
    }
    ssize_t Write(int fd, const void* buffer, size_t size) override {
        return stalled ? 0 : PosixFileSystem::Write(fd, buffer, std::min<size_t>(size, 5));
    }
    bool stalled = false;
};

TEST(WholeFile, PartialReadsAndWritesAddUpToTheWholeFileAndNoProgressIsAFullDisk) {
    testsupport::TempDir dir;
    const std::string path = dir.PathOf("Datei");
    TrickleFileSystem fs;
    std::vector<uint8_t> bytes(200 * 1024 + 3);
    for (size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = uint8_t(i * 31);
    ASSERT_EQ(WriteFileBytes(fs, path, bytes, CreateMode::Truncate, Durability::Synced), 0);
    std::vector<uint8_t> back;
    ASSERT_EQ(ReadFileBytes(fs, path, back), 0);
    EXPECT_EQ(back, bytes);
    ASSERT_EQ(ReadFileBytes(fs, path, back, 10), 0);
    EXPECT_EQ(back, std::vector<uint8_t>(bytes.begin(), bytes.begin() + 10));
    fs.stalled = true; // a write that makes no progress: the disk is full
    EXPECT_EQ(WriteFileBytes(fs, path, Bytes("neu"), CreateMode::Truncate), -ENOSPC);
}

} // namespace

} // namespace velto

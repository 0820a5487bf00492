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
    // A dot in a folder name is no extension: the files stay beside the project.
    EXPECT_EQ(LockFilePath("/daten.alt/Plan"), "/daten.alt/Plan.~~~");
    EXPECT_EQ(BackupFilePath("Plan", 0), "Plan.BK0");
}

// Readers that stop at the first zero see the name alone; host and process id follow it.
TEST(LockRecord, HoldsTheNameInWindows1252ThenHostAndProcess) {
    const std::vector<uint8_t> record = LockRecord("Jürgen", "pc-3", 815);
    ASSERT_EQ(record.size(), 256u);
    EXPECT_EQ(std::string(record.begin(), record.begin() + 16), "J\xFCrgen\0pc-3\0"
                                                                "815\0"s);
    EXPECT_TRUE(std::all_of(record.begin() + 16, record.end(), [](uint8_t b) { return b == 0; }));

    const std::vector<uint8_t> longName = LockRecord(std::string(300, 'x'), "pc-3", 815);
    ASSERT_EQ(longName.size(), 256u);
    EXPECT_EQ(longName[254], 'x');
    EXPECT_EQ(longName[255], 0);
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
    const LockOwner ours =
        Owner(std::string_view(reinterpret_cast<const char*>(LockRecord("Bert", "pc-3", 815).data()), 256));
    EXPECT_EQ(std::tuple(ours.user, ours.host, ours.processId), std::tuple("Bert", "pc-3", 815));
    EXPECT_TRUE(ours.IsLeftOver());
    EXPECT_FALSE(Owner("Bert\0pc-3\0"
                       "8x5"s)
                     .IsLeftOver()); // not ours: the number is no number

    LockOwner none;
    EXPECT_EQ(ReadLockOwner(fs, PathOf("Fehlt.~~~"), none), -ENOENT);
}

TEST_F(LockOwnerTest, AHeldLockIsLiveAndOnlyItsHolderRemovesIt) {
    ProjectLock held(fs);
    ASSERT_EQ(held.Create(lock, OwnLockRecord("Anna")), 0);
    LockOwner owner;
    ASSERT_EQ(ReadLockOwner(fs, lock, owner), 0);
    EXPECT_TRUE(owner.held);
    EXPECT_FALSE(owner.IsLeftOver());
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
    ASSERT_EQ(ReadLockOwner(fs, lock, owner), 0);
    EXPECT_EQ(owner.user, "Carla");
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
    EXPECT_EQ(owner.user, "Anna");
    EXPECT_FALSE(owner.IsLeftOver());
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

class WholeFileTest : public TempDirTest {
protected:
    TrickleFileSystem fs;
    std::string path = PathOf("Datei");
};

TEST_F(WholeFileTest, PartialReadsAndWritesAddUpToTheWholeFile) {
    std::vector<uint8_t> bytes(200 * 1024 + 3);
    for (size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = uint8_t(i * 31);
    ASSERT_EQ(WriteFileBytes(fs, path, bytes, CreateMode::Truncate, Durability::Synced), 0);
    std::vector<uint8_t> back;
    ASSERT_EQ(ReadFileBytes(fs, path, back), 0);
    EXPECT_EQ(back, bytes);
    ASSERT_EQ(ReadFileBytes(fs, path, back, 10), 0);
    EXPECT_EQ(back, std::vector<uint8_t>(bytes.begin(), bytes.begin() + 10));
}

TEST_F(WholeFileTest, WriteWithoutProgressCountsAsFullDisk) {
    fs.stalled = true;
    EXPECT_EQ(WriteFileBytes(fs, path, Bytes("neu"), CreateMode::Truncate), -ENOSPC);
}

} // namespace

} // namespace velto

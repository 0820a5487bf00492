// The names beside a project, the lock record, and reading and writing whole files.
#include "core/document/DocTestSupport.h"

#include <cerrno>

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

TEST(LockRecord, HoldsTheNameInWindows1252ZeroPaddedTo256Bytes) {
    const std::vector<uint8_t> record = LockRecord("Jürgen");
    ASSERT_EQ(record.size(), 256u);
    EXPECT_EQ(std::string(record.begin(), record.begin() + 7), "J\xFCrgen\0"s);
    EXPECT_TRUE(std::all_of(record.begin() + 6, record.end(), [](uint8_t b) { return b == 0; }));

    const std::vector<uint8_t> longName = LockRecord(std::string(300, 'x'));
    ASSERT_EQ(longName.size(), 256u);
    EXPECT_EQ(longName[254], 'x');
    EXPECT_EQ(longName[255], 0);
}

class LockHolderTest : public TempDirTest {
protected:
    std::string Holder(std::string_view content) {
        Put(lock, content);
        std::string holder;
        EXPECT_EQ(ReadLockHolder(fs, lock, holder), 0);
        return holder;
    }
    PosixFileSystem fs;
    std::string lock = PathOf("Plan.~~~");
};

TEST_F(LockHolderTest, ReadsTheNameOverTheQuestionMarks) {
    EXPECT_EQ(Holder(""), "???");
    EXPECT_EQ(Holder("A"), "A??"); // read over the placeholder, as always
    EXPECT_EQ(Holder("J\xFCrgen"), "Jürgen");
    EXPECT_EQ(Holder(LockOf("Bert")), "Bert");
    EXPECT_EQ(Holder(std::string(1000, 'z')), std::string(256, 'z'));

    std::string holder;
    EXPECT_EQ(ReadLockHolder(fs, PathOf("Fehlt.~~~"), holder), -ENOENT);
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

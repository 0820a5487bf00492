#pragma once
// The ".VT5" project file: one reader and one writer, exact mirrors of each other. The reader never
// trusts a length or count beyond the bytes left, and returns an error text instead of throwing.
#include "model/ProjectNode.h"

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace velto {

// The view's layout values stored at the head of the file.
struct ProjectViewValues {
    int32_t chartWidth1 = 200;
    int32_t chartWidth2 = 200;
    uint32_t maximized = 0;
    std::array<int32_t, 4> windowRect{}; // left, top, right, bottom
    uint32_t zoom = 20;
};

// Everything a project file holds. Owns its node list.
struct ProjectContent {
    ProjectViewValues view;
    std::array<std::string, 10> assigneeHistory;
    std::array<std::string, 10> remarkHistory;
    CProjectNode* firstNode = nullptr;

    ProjectContent() = default;
    ~ProjectContent();
    ProjectContent(ProjectContent&& other) noexcept;
    ProjectContent& operator=(ProjectContent&& other) noexcept;
    ProjectContent(const ProjectContent&) = delete;
    ProjectContent& operator=(const ProjectContent&) = delete;

    // Hands the node list to the caller, who then owns it.
    CProjectNode* ReleaseNodes();
};

enum class ReadStatus {
    Ok,
    // Zoom outside 5..50 or no nodes: the content is the one-node replacement document, and the
    // caller shows "Falsches Dateiformat!".
    WrongFormat,
    // The file ends early or holds a length/count beyond its size: nothing usable was read.
    Error,
};

struct ReadResult {
    ReadStatus status = ReadStatus::Ok;
    std::string what;    // what was being read when the error happened, in German
    uint64_t offset = 0; // where that field begins
    // Bytes after the last node record. The program has always ignored them; they do not survive
    // a save.
    uint64_t trailingBytes = 0;
    // -errno when reading from a source failed (the file is then not damaged but unreadable).
    int ioError = 0;
    // Error: a German message naming the file, what was being read and the byte offset.
    // WrongFormat: "Falsches Dateiformat!". Ok: empty.
    std::string Message(const std::string& path) const;
};

ReadResult ReadProject(std::span<const uint8_t> bytes, ProjectContent& out);

// Fills up to size bytes of buffer with the file's next bytes; returns how many (0 at the end of the
// file) or -errno.
using ProjectSource = std::function<int64_t(uint8_t* buffer, size_t size)>;
// The same reading from a file of fileSize bytes taken from source as they are needed, so that the
// file is never held whole in memory: a load then peaks at about the size of the built nodes
// rather than the file's size on top of them. fileSize bounds every length and count, as the
// span's size does; a file that turns out shorter ends early.
ReadResult ReadProject(uint64_t fileSize, const ProjectSource& source, ProjectContent& out);
std::vector<uint8_t> WriteProject(const ProjectContent& content);
// Writes the same bytes for a list the caller owns (the document's own list).
std::vector<uint8_t> WriteProject(const ProjectViewValues& view,
                                  const std::array<std::string, 10>& assigneeHistory,
                                  const std::array<std::string, 10>& remarkHistory,
                                  const CProjectNode* firstNode);

// Takes the file's bytes piece by piece, in order; false stops the writing.
using ProjectSink = std::function<bool(std::span<const uint8_t> piece)>;
// The same bytes handed to sink in pieces of up to 1 MiB, for a save that needs no buffer of the
// file's size (on a large project that halves the memory a save takes). False when the sink
// refused a piece; nothing is handed over after that.
bool WriteProject(const ProjectViewValues& view, const std::array<std::string, 10>& assigneeHistory,
                  const std::array<std::string, 10>& remarkHistory, const CProjectNode* firstNode,
                  const ProjectSink& sink);

} // namespace velto

#pragma once
// The project-file commands of velto-cli. Each returns the process exit status.
#include <iosfwd>
#include <string>

namespace velto {

struct ProjectContent;
struct ReadResult;

// Reads a project as the program opens it and tells err what went wrong. Returns kExitOk,
// kExitFileError (content empty) or kExitWrongFormat (content is the replacement document).
int LoadProject(const std::string& path, ProjectContent& content, ReadResult& result, std::ostream& err);

int RunInfo(const std::string& path, std::ostream& out, std::ostream& err);
int RunDump(const std::string& path, std::ostream& out, std::ostream& err);
int RunBuild(const std::string& jsonPath, const std::string& outPath, std::ostream& out, std::ostream& err);
int RunResave(const std::string& inPath, const std::string& outPath, std::ostream& out, std::ostream& err);

} // namespace velto

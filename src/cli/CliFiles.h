#pragma once
// The files velto-cli reads and writes, through the core's file layer. Inputs are read through a
// symbolic link and refused when they are no regular file (a FIFO never blocks); outputs go
// through the safe-write layer, so that a failed write leaves OUT as it was, or absent, and no
// temporary file behind. Failures come as German messages naming the file.
#include "JsonReader.h"
#include "document/ProjectFile.h"
#include "io/FileSystem.h"

#include <functional>
#include <string>

namespace velto {

// The whole input file.
bool ReadInput(const std::string& path, std::string& bytes, std::string& error);
// Hands the input file to consume, which pulls its bytes a window at a time; false when the file
// cannot be opened or a read fails.
bool ReadInputInPieces(const std::string& path, const std::function<void(const JsonPieceReader&)>& consume,
                       std::string& error);
// The project at path, read as the program opens it; false only when it cannot be opened; errors
// while reading are in result.
bool ReadProjectInput(const std::string& path, ProjectContent& content, ReadResult& result,
                      std::string& error);
// Writes the file at path with the bytes produce hands over.
bool WriteOutput(const std::string& path, const ContentProducer& produce, std::string& error);

} // namespace velto

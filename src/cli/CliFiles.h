#pragma once
// The files velto-cli reads and writes: read whole, and written so that a failure leaves nothing
// behind (a temporary file beside the target, renamed into place once complete).
#include <cstdint>
#include <span>
#include <string>
#include <vector>

// False with a German message naming the file when it cannot be opened or read.
bool ReadWholeFile(const std::string& path, std::vector<uint8_t>& bytes, std::string& error);
// False with a German message naming the file; the target is then unchanged or absent.
bool WriteFileSafely(const std::string& path, std::span<const uint8_t> bytes, std::string& error);

// Whole files: read in one piece, written in one piece, every step checked. A path is UTF-8 text in
// the platform's own form. Failures raise RuntimeError with the system's description.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/runtime_error.h"

namespace orvane {

// The system's paths are UTF-8 text; these are the two doors to the platform's own type.
std::filesystem::path NativePath(const std::string& path);
std::string PathText(const std::filesystem::path& path);

// The error for the code that a failed call of the C library left in errno: the fixed descriptions
// where they fit, the operating system's text otherwise. A missing file and a missing folder share
// one code, so `path` is looked at to tell "File not found" from "Path not found"; with an empty
// path it is "File not found". The error is one of that file.
RuntimeError SystemError(int code, const std::string& path);

// All bytes of a file. One of more than 1 GiB, or a device that gives bytes without end, is refused
// as too large.
std::string ReadWholeFile(const std::string& path);

// Opens `path` for output, replacing what it held, and writes, flushes, syncs and closes it, each
// checked. On an error what was written stays on the disk.
void WriteWholeFile(const std::string& path, std::string_view bytes);

// The path from the root on, as it is meant in the current folder; an empty one stays empty.
std::string AbsolutePath(const std::string& path);

// True for an ordinary file: no folder, no device.
bool IsRegularFile(const std::string& path);

// When a file was last written; none of one that isn't there.
std::optional<std::chrono::system_clock::time_point> WrittenAt(const std::string& path);

// Makes a folder, which only the user may look into where the platform knows that, and those above
// it. One that stands there stays as it is.
void MakePrivateFolder(const std::string& path);

// The last part of a path: what stands behind its last slash (or backslash, where the platform
// separates folders with it).
std::string FileName(const std::string& path);

// The path up to and including its last backslash or slash; empty without either.
std::string FolderOfPath(std::string_view path);

}  // namespace orvane

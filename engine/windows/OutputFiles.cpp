// The engine's files on Windows. Their names are UTF-8 in the run-control file.
#include "engine/OutputFiles.h"

#include <windows.h>

#include <array>
#include <memory>

namespace korvel::engine {

namespace {

std::wstring wide(const std::string& text) {
    const int size = static_cast<int>(text.size());
    std::wstring result(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), static_cast<int>(result.size()));
    return result;
}

std::string systemsWords(DWORD code) {
    std::array<char, 512> words{};
    const DWORD size = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                      code, 0, words.data(), static_cast<DWORD>(words.size()), nullptr);
    std::string text(words.data(), size);
    return text.substr(0, text.find_last_not_of(" .\r\n") + 1);
}

[[noreturn]] void fail(const char* what, const std::string& path) {
    throw FileProblem{std::string(what) + ' ' + path + ": " + systemsWords(GetLastError())};
}

struct CloseHandleOf {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OpenFile = std::unique_ptr<void, CloseHandleOf>;

OpenFile opened(const std::string& path, DWORD access, DWORD disposition, const char* what) {
    const HANDLE handle = CreateFileW(wide(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                      nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) fail(what, path);
    return OpenFile(handle);
}

bool isFolder(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(wide(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::string unfinished(const std::string& target) {
    return target + ".unfinished";
}

} // namespace

std::string readFile(const std::string& path) {
    if (isFolder(path)) throw FileProblem{"can't open " + path + ": not a file"};
    const OpenFile file = opened(path, GENERIC_READ, OPEN_EXISTING, "can't open");
    if (GetFileType(file.get()) != FILE_TYPE_DISK) throw FileProblem{"can't open " + path + ": not a file"};
    std::string text;
    std::array<char, 65536> chunk{};
    for (;;) {
        DWORD count = 0;
        if (!ReadFile(file.get(), chunk.data(), static_cast<DWORD>(chunk.size()), &count, nullptr))
            fail("can't read", path);
        if (count == 0) return text;
        text.append(chunk.data(), count);
    }
}

bool fileExists(const std::string& path) {
    return GetFileAttributesW(wide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

// The target of a file that stands beside it.
struct OutputFiles::Pending : std::string {
    using std::string::string;
    explicit Pending(const std::string& target) : std::string(target) {}
};

OutputFiles::OutputFiles() = default;

OutputFiles::~OutputFiles() {
    for (const Pending& target : m_pending)
        DeleteFileW(wide(unfinished(target)).c_str());
}

void OutputFiles::add(const std::string& path, std::string_view bytes) {
    if (isFolder(path)) throw FileProblem{"can't write " + path + ": not a file"};
    const OpenFile file = opened(unfinished(path), GENERIC_WRITE, CREATE_ALWAYS, "can't write");
    m_pending.emplace_back(path);
    DWORD count = 0;
    if (!WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) ||
        count != bytes.size() || !FlushFileBuffers(file.get()))
        fail("can't write", path);
}

void OutputFiles::commit() {
    while (!m_pending.empty()) {
        const Pending target = m_pending.front();
        if (!MoveFileExW(wide(unfinished(target)).c_str(), wide(target).c_str(), MOVEFILE_REPLACE_EXISTING))
            fail("can't write", target);
        m_pending.erase(m_pending.begin());
    }
}

} // namespace korvel::engine

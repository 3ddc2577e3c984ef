#include "core/BinaryIO.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Helpers.h"

namespace bw {

BinaryReader BinaryReader::FromFile(const std::string& path) { return BinaryReader(zReadWholeFile(path)); }

void BinaryReader::Seek(size_t pos) {
    if (pos > data_.size()) zRaise(kErrInputPastEnd);
    pos_ = pos;
}

void BinaryReader::Need(size_t n) const {
    if (n > data_.size() - pos_) zRaise(kErrInputPastEnd);
}

uint16_t BinaryReader::U16() {
    Need(2);
    auto b = reinterpret_cast<const unsigned char*>(data_.data() + pos_);
    pos_ += 2;
    return static_cast<uint16_t>(b[0] | (b[1] << 8));
}

int16_t BinaryReader::I16() { return static_cast<int16_t>(U16()); }

int32_t BinaryReader::I32() {
    Need(4);
    auto b = reinterpret_cast<const unsigned char*>(data_.data() + pos_);
    pos_ += 4;
    uint32_t v = uint32_t(b[0]) | (uint32_t(b[1]) << 8) | (uint32_t(b[2]) << 16) | (uint32_t(b[3]) << 24);
    return static_cast<int32_t>(v);
}

float BinaryReader::F32() {
    uint32_t v = static_cast<uint32_t>(I32());
    float f;
    std::memcpy(&f, &v, 4);
    return f;
}

double BinaryReader::F64() {
    Need(8);
    uint64_t v = 0;
    for (int i = 7; i >= 0; --i) v = (v << 8) | static_cast<unsigned char>(data_[pos_ + i]);
    pos_ += 8;
    double d;
    std::memcpy(&d, &v, 8);
    return d;
}

std::string BinaryReader::Bytes(size_t n) {
    Need(n);
    std::string s = data_.substr(pos_, n);
    pos_ += n;
    return s;
}

std::string BinaryReader::FixedTrimmed(size_t n) { return zTrim(Bytes(n)); }

std::string BinaryReader::VarText() {
    uint16_t n = U16();
    return Bytes(n);
}

void BinaryWriter::U16(uint16_t v) {
    data_.push_back(static_cast<char>(v & 0xFF));
    data_.push_back(static_cast<char>(v >> 8));
}
void BinaryWriter::I16(int16_t v) { U16(static_cast<uint16_t>(v)); }
void BinaryWriter::I32(int32_t v) {
    uint32_t u = static_cast<uint32_t>(v);
    for (int i = 0; i < 4; ++i) data_.push_back(static_cast<char>((u >> (8 * i)) & 0xFF));
}
void BinaryWriter::F32(float v) {
    uint32_t u;
    std::memcpy(&u, &v, 4);
    I32(static_cast<int32_t>(u));
}
void BinaryWriter::F64(double v) {
    uint64_t u;
    std::memcpy(&u, &v, 8);
    for (int i = 0; i < 8; ++i) data_.push_back(static_cast<char>((u >> (8 * i)) & 0xFF));
}
void BinaryWriter::Bytes(const std::string& s) { data_ += s; }
void BinaryWriter::FixedPadded(const std::string& s, size_t n) {
    std::string t = s.substr(0, n);
    t.resize(n, ' ');
    data_ += t;
}
void BinaryWriter::VarText(const std::string& s) {
    if (s.size() > 0xFFFF) zRaise(kErrOverflow);
    U16(static_cast<uint16_t>(s.size()));
    data_ += s;
}

std::string zTrim(const std::string& s) {
    size_t b = s.find_first_not_of(' ');
    if (b == std::string::npos) return {};
    size_t e = s.find_last_not_of(' ');
    return s.substr(b, e - b + 1);
}

std::string zReadWholeFile(const std::string& path) {
    std::FILE* f = std::fopen(zNormalizePath(path).c_str(), "rb");
    if (!f) zRaise(kErrFileNotFound);
    std::string bytes;
    long size = -1;
    if (std::fseek(f, 0, SEEK_END) == 0) size = std::ftell(f);
    std::rewind(f);
    // Straight into the string when the size is known; then whatever more
    // the file turns out to hold.
    if (size > 0) {
        bytes.resize(static_cast<size_t>(size));
        bytes.resize(std::fread(bytes.data(), 1, bytes.size(), f));
    }
    char buf[1 << 16];
    size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) bytes.append(buf, n);
    const bool failed = std::ferror(f) != 0;
    std::fclose(f);
    if (failed) zRaise(kErrPathFileAccess);
    return bytes;
}

void zWriteFileAtomic(const std::string& path, const std::string& bytes) {
    std::string target = zNormalizePath(path);
    // A link is kept: its target is what gets replaced.
    std::error_code ec;
    if (std::filesystem::is_symlink(target, ec)) {
        const auto real = std::filesystem::weakly_canonical(target, ec);
        if (!ec) target = real.string();
    }
    const size_t slash = target.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : slash == 0 ? "/" : target.substr(0, slash);
    const std::string name = slash == std::string::npos ? target : target.substr(slash + 1);
    // A temporary of its own, created exclusively beside the file: two saves
    // at once never share one, and the rename never crosses file systems.
    std::string temp = zJoinPath(folder, "." + name + ".XXXXXX");
    int fd = ::mkstemp(temp.data());
    if (fd < 0) zRaise(kErrPathFileAccess);
    struct stat old {};
    const bool existed = ::stat(target.c_str(), &old) == 0;
    // The new file keeps the old one's permissions; a new file gets the
    // usual ones.
    const mode_t mode = existed ? (old.st_mode & 07777) : 0644;
    size_t done = 0;
    bool good = ::fchmod(fd, mode) == 0;
    while (good && done < bytes.size()) {
        const ssize_t w = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (w <= 0) good = false;
        else done += static_cast<size_t>(w);
    }
    good = ::fsync(fd) == 0 && good;
    good = ::close(fd) == 0 && good;
    if (!good || std::rename(temp.c_str(), target.c_str()) != 0) {
        ::unlink(temp.c_str());
        zRaise(kErrPathFileAccess);
    }
    // Make the rename itself durable, and say so when it could not be.
    int dfd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (dfd < 0) zRaise(kErrPathFileAccess);
    const bool flushed = ::fsync(dfd) == 0;
    ::close(dfd);
    if (!flushed) zRaise(kErrPathFileAccess);
}

}  // namespace bw

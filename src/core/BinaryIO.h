// Little-endian binary reading and writing of the reference files and
// databases. Every read is bounds-checked: a read past the end raises
// "Input past end of file" (62) instead of reading garbage, so a truncated
// or hostile file can never crash the program.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bw {

class BinaryReader {
public:
    BinaryReader() = default;
    explicit BinaryReader(std::string bytes) : data_(std::move(bytes)) {}

    // Reads a whole file; raises 53 (file not found) when it cannot be opened.
    static BinaryReader FromFile(const std::string& path);

    size_t Pos() const { return pos_; }
    size_t Size() const { return data_.size(); }
    size_t Remaining() const { return data_.size() - pos_; }
    bool AtEnd() const { return pos_ >= data_.size(); }
    void Seek(size_t pos);

    int16_t I16();
    uint16_t U16();
    int32_t I32();
    float F32();
    double F64();
    // n raw bytes.
    std::string Bytes(size_t n);
    // n bytes with blanks stripped at both ends (certification strings).
    std::string FixedTrimmed(size_t n);
    // A variable text: unsigned 16-bit count, then the bytes.
    std::string VarText();
    // A fixed-length text of n bytes as stored (no trimming).
    std::string Fixed(size_t n) { return Bytes(n); }

    const std::string& Data() const { return data_; }

private:
    void Need(size_t n) const;
    std::string data_;
    size_t pos_ = 0;
};

class BinaryWriter {
public:
    void I16(int16_t v);
    void U16(uint16_t v);
    void I32(int32_t v);
    void F32(float v);
    void F64(double v);
    void Bytes(const std::string& s);
    // s blank-padded (or cut) to exactly n bytes.
    void FixedPadded(const std::string& s, size_t n);
    // Unsigned 16-bit count then the bytes; raises overflow above 65535 bytes.
    void VarText(const std::string& s);

    const std::string& Data() const { return data_; }
    std::string& Data() { return data_; }

private:
    std::string data_;
};

// The whole file in one read. Raises 53 when it cannot be opened, 75 when
// the read fails.
std::string zReadWholeFile(const std::string& path);

// Writes bytes to path atomically: a temporary with a unique name is
// created exclusively beside the file, written and flushed to disk, given
// the old file's permissions, then renamed over path, so the old file is
// replaced in one step and never deleted first; the folder is flushed too.
// A symbolic link keeps pointing at the replaced file. Raises 75 on
// failure; the old file is untouched unless the rename succeeded.
void zWriteFileAtomic(const std::string& path, const std::string& bytes);

// Strip blanks at both ends.
std::string zTrim(const std::string& s);

}  // namespace bw

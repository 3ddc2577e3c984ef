#include "core/Codepage.h"

#include <cstdint>

namespace bw {
namespace {

// Code points of bytes 0x80..0x9F; 0 marks the five unassigned bytes.
constexpr char32_t kHigh[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

int ToCp1252(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<int>(cp);
    for (int i = 0; i < 32; ++i)
        if (kHigh[i] != 0 && kHigh[i] == cp) return 0x80 + i;
    return -1;
}

void AppendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

}  // namespace

bool zUtf8ToCp1252(const std::string& utf8, std::string& out, size_t* badOffset) {
    out.clear();
    out.reserve(utf8.size());
    size_t i = 0;
    while (i < utf8.size()) {
        const auto b0 = static_cast<unsigned char>(utf8[i]);
        char32_t cp = 0;
        size_t len = 0;
        if (b0 < 0x80) {
            cp = b0;
            len = 1;
        } else if ((b0 & 0xE0) == 0xC0) {
            cp = b0 & 0x1F;
            len = 2;
        } else if ((b0 & 0xF0) == 0xE0) {
            cp = b0 & 0x0F;
            len = 3;
        } else if ((b0 & 0xF8) == 0xF0) {
            cp = b0 & 0x07;
            len = 4;
        }
        bool ok = len != 0 && i + len <= utf8.size();
        for (size_t k = 1; ok && k < len; ++k) {
            const auto b = static_cast<unsigned char>(utf8[i + k]);
            if ((b & 0xC0) != 0x80) ok = false;
            cp = (cp << 6) | (b & 0x3F);
        }
        // Overlong forms are not valid UTF-8.
        if (ok && ((len == 2 && cp < 0x80) || (len == 3 && cp < 0x800) || (len == 4 && cp < 0x10000))) ok = false;
        const int c = ok ? ToCp1252(cp) : -1;
        if (c < 0) {
            if (badOffset) *badOffset = i;
            return false;
        }
        out += static_cast<char>(c);
        i += len;
    }
    return true;
}

std::string zCp1252ToUtf8(const std::string& cp1252) {
    std::string out;
    out.reserve(cp1252.size());
    for (char ch : cp1252) {
        const auto b = static_cast<unsigned char>(ch);
        if (b < 0x80 || b >= 0xA0) {
            AppendUtf8(out, b);
        } else {
            const char32_t cp = kHigh[b - 0x80];
            AppendUtf8(out, cp ? cp : 0xFFFD);
        }
    }
    return out;
}

}  // namespace bw

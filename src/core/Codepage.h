// Text in the program's files is single-byte Windows-1252; source texts
// edited on a modern desktop are UTF-8. These convert between the two.
#pragma once

#include <string>

namespace bw {

// UTF-8 to Windows-1252. False when the text is not valid UTF-8 or holds a
// character Windows-1252 cannot store; badOffset is then the byte offset.
bool zUtf8ToCp1252(const std::string& utf8, std::string& out, size_t* badOffset = nullptr);
// Windows-1252 to UTF-8 (the five unassigned bytes become U+FFFD).
std::string zCp1252ToUtf8(const std::string& cp1252);

}  // namespace bw

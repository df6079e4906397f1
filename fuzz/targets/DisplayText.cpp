// Values read from the controller go through the display's character replacement before
// they are drawn: any bytes at all may arrive there.
#include <array>
#include <string>

#include "Display/Display.h"
#include "FuzzSupport.h"
#include "Targets.h"

namespace {

typedef std::array<size_t, 256> Counts;

Counts CountBytes(const std::string& text)
{
    Counts counts{};
    for (char c : text) {
        ++counts[static_cast<unsigned char>(c)];
    }
    return counts;
}

// Bytes the replacement never touches: ASCII other than DEL and the "-" it writes, and the
// bytes that are neither a replaced lead (0xC2-0xEF) nor a continuation (0x80-0xBF).
bool Kept(unsigned byte)
{
    if (byte == 0x7F || byte == '-') {
        return false;
    }
    return byte < 0x80 || byte == 0xC0 || byte == 0xC1 || byte >= 0xF0;
}

}  // namespace

namespace Fuzz {

int DisplayText(const uint8_t* data, size_t size)
{
    const std::string original(reinterpret_cast<const char*>(data), size);
    std::string text = original;
    CDisplay::ReplaceUnsupportedChars(text);

    FUZZ_CHECK(text.size() <= original.size(), "the text grew");
    const Counts before = CountBytes(original);
    const Counts after = CountBytes(text);
    for (unsigned byte = 0; byte < 256; ++byte) {
        if (Kept(byte)) {
            FUZZ_CHECK(before[byte] == after[byte], "byte " + std::to_string(byte) + " lost or added");
        }
    }
    // Only the first DEL is replaced, and nothing after it changes.
    const size_t del = original.find('\x7F');
    if (del != std::string::npos) {
        FUZZ_CHECK(after[0x7F] + 1 == before[0x7F], "");
        const std::string tail = original.substr(del + 1);
        FUZZ_CHECK(
            text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0,
            "bytes after the first DEL changed");
    }
    return 0;
}

}  // namespace Fuzz

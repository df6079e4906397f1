#include "Display/TextAdjustment.h"

#include <sstream>

using Qb::int32;

namespace {

// The padding width is the panel's row, not the adjuster's width: kept that way on purpose.
const size_t kPaddedLength = 30;

void InsertAndPad(std::string& text, int32 spaces)
{
    if (spaces > 0) {
        text.insert(0, static_cast<size_t>(spaces), ' ');
    }
    if (text.size() < kPaddedLength) {
        text.append(kPaddedLength - text.size(), ' ');
    }
}

}  // namespace

int32 CTextAdjustment::Gap(const std::string& text) const
{
    const size_t width = m_iWidth > 0 ? static_cast<size_t>(m_iWidth) : 0;
    return text.size() > width ? 0 : static_cast<int32>(width - text.size());
}

int32 CTextAdjustment::Centre(std::string& text, int32 offset)
{
    const int32 half = Gap(text) / 2;
    InsertAndPad(text, half + offset);
    return half;
}

int32 CTextAdjustment::AlignRight(std::string& text, int32 offset)
{
    const int32 gap = Gap(text);
    InsertAndPad(text, gap + offset);
    return gap;
}

int32 CTextAdjustment::AlignLeft(std::string& text, int32 offset)
{
    InsertAndPad(text, offset);
    return 0;
}

std::vector<std::string> CTextAdjustment::Split(const std::string& text, char separator)
{
    std::vector<std::string> pieces;
    std::istringstream stream(text);
    std::string piece;
    while (std::getline(stream, piece, separator)) {
        pieces.push_back(piece);
    }
    return pieces;
}

int32 CTextAdjustment::Wrap(const std::string& text, std::vector<std::string>& lines, int32 maximum,
                            char separator)
{
    const size_t before = lines.size();
    std::string line;
    for (const std::string& word : Split(text, separator)) {
        if (line.empty()) {
            // A word always starts an empty line, however long; it is never cut here.
            line = word;
            continue;
        }
        const int32 needed = static_cast<int32>(line.size() + 1 + word.size());
        // ">=" on purpose: a wrapped line holds at most maximum - 1 characters.
        if (needed >= maximum) {
            lines.push_back(line);
            line = word;
        } else {
            line += separator;
            line += word;
        }
    }
    if (!line.empty()) {
        lines.push_back(line);
    }
    return static_cast<int32>(lines.size() - before);
}

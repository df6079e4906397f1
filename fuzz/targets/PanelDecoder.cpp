// The panel emulator decodes whatever the daemon writes, in whatever chunks the socket hands
// over: the same bytes must give the same panel however they are split.
#include <string>

#include "FuzzSupport.h"
#include "Targets.h"
#include "panelsim/PanelModel.h"

namespace {

using Panelsim::CPanelModel;

void CheckPosition(const CPanelModel& panel)
{
    FUZZ_CHECK(panel.GetRow() >= 0 && panel.GetRow() < Panelsim::PANEL_ROWS,
               "row " + std::to_string(panel.GetRow()));
    // One past the last cell is where a text that filled the row leaves the position.
    FUZZ_CHECK(panel.GetColumn() >= 0 && panel.GetColumn() <= Panelsim::PANEL_COLUMNS,
               "column " + std::to_string(panel.GetColumn()));
}

void CheckSame(const CPanelModel& chunked, const CPanelModel& whole)
{
    FUZZ_CHECK(chunked.Dump() == whole.Dump(), "chunked:\n" + chunked.Dump() + "whole:\n" + whole.Dump());
    FUZZ_CHECK(chunked.GetRow() == whole.GetRow() && chunked.GetColumn() == whole.GetColumn(), "");
    FUZZ_CHECK(chunked.GetHighlightMode() == whole.GetHighlightMode(), "");
    FUZZ_CHECK(chunked.Frames() == whole.Frames() && chunked.Clears() == whole.Clears(), "");
    FUZZ_CHECK(chunked.Errors() == whole.Errors() && chunked.LastError() == whole.LastError(), "");
    for (int row = 0; row < Panelsim::PANEL_ROWS; ++row) {
        for (int column = 0; column < Panelsim::PANEL_COLUMNS; ++column) {
            FUZZ_CHECK(chunked.Code(row, column) == whole.Code(row, column), "");
        }
    }
}

}  // namespace

namespace Fuzz {

int PanelDecoder(const uint8_t* data, size_t size)
{
    CChunker chunks(data, size);
    CPanelModel whole;
    whole.Feed(chunks.Stream(), chunks.StreamSize());

    CPanelModel chunked;
    size_t reported = 0;
    const uint8_t* chunk = nullptr;
    size_t length = 0;
    while (chunks.Next(chunk, length)) {
        chunked.Feed(chunk, length);
        CheckPosition(chunked);
        // The terminal shows errors as they come; each is reported once.
        reported += chunked.TakeNewErrors().size();
        FUZZ_CHECK(reported == chunked.Errors(), "");
    }
    CheckSame(chunked, whole);

    // Every row dumps as 30 stand-ins between bars, whatever codes the cells hold.
    for (int row = 0; row < Panelsim::PANEL_ROWS; ++row) {
        FUZZ_CHECK(chunked.RowText(row).size() == Panelsim::PANEL_COLUMNS, "");
    }
    chunked.Disconnected();
    CheckPosition(chunked);
    return 0;
}

}  // namespace Fuzz

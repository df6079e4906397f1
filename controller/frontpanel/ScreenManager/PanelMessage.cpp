#include "ScreenManager/PanelMessage.h"

#include "Display/Display.h"
#include "Display/TextAdjustment.h"

void DrawPanelMessage(CDisplay* pDisplay, const std::string& line1, const std::string& line2)
{
    if (pDisplay == nullptr)
        return;
    pDisplay->Clear();
    std::string first = line1;  // aligned in place
    std::string second = line2;
    pDisplay->WriteAligned(first, 1, ALIGN_CENTRE, 0);
    pDisplay->WriteAligned(second, 2, ALIGN_CENTRE, 0);
    pDisplay->RedrawWindow();
    // No key hints: keys wait in the queue until the message is gone.
    pDisplay->SetRightIndicators(0);
}

// A list line laid out over two rows, for labels that leave no room for the choice: the
// label on the first row, the entry on the second, indented. The second row belongs to a
// spacer line that the long-list menu style keeps in the slot after this one.
//
//   CGenericLongList()
//   TakeDummyLine()   the spacer for the next slot, handed over once (the caller owns it
//                     from then; null afterwards). An untaken spacer dies with the line.
//
// The long-list style says how much room there is before each draw: flag 0 set, two rows;
// flag 0 clear, the last row of the screen, so label and entry share one row; flag 2 set,
// the first row has scrolled away and only the entry row is drawn. The rest of the
// interface is CGenericList's.
#pragma once

#include "Lines/GenericList.h"

class CGenericDummyLine;

class CGenericLongList : public CGenericList {
public:
    CGenericLongList();
    ~CGenericLongList() override;

    CGenericDummyLine* TakeDummyLine();
    void Draw(int row) override;

private:
    void DrawEntryRow(int row);

    CGenericDummyLine* m_pDummy;
};

#include "Lines/GenericDummyLine.h"

CGenericDummyLine::CGenericDummyLine()
{
    m_bFlag1 = true;  // marks the dummy for the long-list menu style
}

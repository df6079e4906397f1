// A choice that creates a row of a table: bound to the table's row status and the instance
// under which its rows are numbered (".1" for rows ".1.1", ".1.2", ...), ENTER on an entry
// creates the next free row with createAndGo (4) and the entry's controller text in the
// given column, in one transaction. It keeps nothing once written.
#pragma once

#include <string>

#include "Lines/GenericList.h"

class CAddRowListLine : public CGenericList {
public:
    explicit CAddRowListLine(const std::string& column);

    // The value of a bound row status is not an entry: the line keeps its own.
    void RefreshValue() override {}
    Qb::uint32 WriteObject(const std::string& value) override;

private:
    std::string m_strColumn;
};

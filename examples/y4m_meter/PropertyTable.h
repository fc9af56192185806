#ifndef PropertyTable_H
#define PropertyTable_H

#include "ZrvProperties.h"

#include <iosfwd>
#include <map>
#include <string>

/// A table of properties, sorted by name, for people to read.
class PropertyTable {
public:
    /// Adds all properties of a set.
    /// \param iPrefix goes in front of their names
    void Add(const ZrvProperties& iSet, const std::string& iPrefix = "");

    void Print(std::ostream& ioOutput) const;

private:
    struct Row {
        std::string type;
        std::string value;
    };

    std::map<std::string, Row> m_rows;
};

#endif

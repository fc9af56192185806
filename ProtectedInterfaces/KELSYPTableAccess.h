#ifndef KELSYPTableAccess_H
#define KELSYPTableAccess_H

#include "KELInline.h"

#include <concepts>

/// \file
/// How the keyed map reaches its table.

/// A table that can do more than the platform's: it takes a hash that is at hand, compares in line, and can be
/// exchanged and copied as a whole.
///
/// `KELSysSimpleHashTable` of this tree is one. The table of the real platform offers the untyped interface alone, and
/// the map must work over it as well; so everything that goes beyond that interface goes through `KELSYPTableAccess`.
template <class Table>
concept KELSYPHashedTable = requires(Table& ioTable, void* iElement, bool (*iIsSame)(void*))
{
    {
        ioTable.InsertHashed(iElement, 0U, iIsSame)
        } -> std::same_as<void*>;
    {
        ioTable.LocateHashed(iElement, 0U, iIsSame)
        } -> std::same_as<void*>;
    ioTable.Swap(ioTable);
    ioTable.CopyFrom(ioTable, [](void* iOther) { return iOther; });
};

/// Reaches a hashed table directly and any other through its untyped interface.
template <class Table>
struct KELSYPTableAccess {
    /// Makes an empty table, with a salted hash function if it takes one.
    template <class Hash, class Equal, class SaltedHash>
    static Table Make(Hash iHash, Equal iEqual, SaltedHash iSaltedHash)
    {
        if constexpr (std::constructible_from<Table, int, Hash, Equal, SaltedHash>) {
            return Table(0, iHash, iEqual, iSaltedHash);
        } else {
            return Table(0, iHash, iEqual);
        }
    }

    template <class IsProbe>
    KEL_ALWAYS_INLINE static void* Locate(const Table& iTable, void* iProbe, unsigned int iHash,
                                          const IsProbe& iIsProbe)
    {
        if constexpr (KELSYPHashedTable<Table>) {
            return iTable.LocateHashed(iProbe, iHash, iIsProbe);
        } else {
            return iTable.Locate(iProbe);
        }
    }

    template <class IsElement>
    static void* Insert(Table& ioTable, void* iElement, unsigned int iHash, const IsElement& iIsElement)
    {
        if constexpr (KELSYPHashedTable<Table>) {
            return ioTable.InsertHashed(iElement, iHash, iIsElement);
        } else {
            return ioTable.InsertAndReturn(iElement);
        }
    }

    /// Makes an empty table a copy of another with elements that iReplace makes; false for a table that is not ours.
    template <class Replace>
    static bool CopyAll(const Table& iFrom, Table& oTo, const Replace& iReplace)
    {
        if constexpr (KELSYPHashedTable<Table>) {
            oTo.CopyFrom(iFrom, iReplace);
            return true;
        } else {
            return false;
        }
    }

    /// Moves all elements to an empty table, or none when an untyped table does not take one over. Null elements stay.
    static bool MoveAll(Table& ioFrom, Table& oTo) noexcept
    {
        if constexpr (KELSYPHashedTable<Table>) {
            oTo.Swap(ioFrom);
        } else {
            if (!ShareAll(ioFrom, oTo)) {
                oTo.RemoveAll();
                return false;
            }
            ioFrom.RemoveAll();
        }
        return true;
    }

private:
    static bool ShareAll(const Table& iFrom, Table& oTo) noexcept
    {
        try {
            for (int i = 0; i < iFrom.Size(); ++i) {
                void* const element = iFrom.Get(i);
                if (!element || oTo.InsertAndReturn(element) != element) {
                    return false;
                }
            }
        } catch (...) {
            return false;
        }
        return true;
    }
};

#endif

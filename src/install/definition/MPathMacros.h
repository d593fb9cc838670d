#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <cstdint>

/// The table that turns `{programfiles}/Maker/Product` into a path. Keys stand with their braces;
/// a key may be there twice, and the first wins. The table is only ever rebuilt as a whole or added to.
class MPathMacros {
public:
    /// Rebuilds the table from the special folders. With `useX64` each folder loses every " (x86)" but
    /// under its name with "32", and has a name with "64" too.
    void CreatePathMacros(bool useX64);
    /// `data` gives the key `{data}`.
    void AddMacro(const MString& name, const MString& value);
    /// Replaces keys by values, ignoring case, in passes over the whole table until one changes nothing.
    /// What is no key stays as it stands. A value that holds its own key would never end.
    [[nodiscard]] MString ExpandMacros(const MString& text) const;

    /// The path or address that a text of the definition stands for: there backslashes separate as slashes
    /// do, on every platform, but not in an address and not in what macros stand for.
    [[nodiscard]] MString ExpandPath(const MString& text) const;
    /// The first key of the table that stands in a text, braces included; empty if there is none.
    [[nodiscard]] MString FindKey(const MString& text) const;
    /// A value that holds a key of the table; empty if there is none. With one there is no end of expanding.
    [[nodiscard]] MString FindValueWithKey() const;

    /// The key of a name: `{name}`.
    [[nodiscard]] static MString GetKey(const MString& name);
    /// The name under which definitions know an `MSpecialFolder`, without braces. "temp" and "logs" stand for
    /// other folders than they say, and those behind them have the empty name: definitions rely on what
    /// results.
    [[nodiscard]] static MString GetFolderName(int32_t folder);

private:
    MList<MString> MacroKeys;
    MList<MString> MacroValues;
};

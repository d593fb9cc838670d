#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <string>
#include <string_view>

/// The text of an application's entry by the freedesktop desktop entry specification, version 1.5. Menus show
/// it among the programs for sound.
///
/// Failures are an `MException` with code 0 and the text given with each operation.
class MDesktopEntry {
public:
    /// `name` is what the desktop shows; it and the description lose control characters that the format
    /// cannot escape. Raises "A desktop entry needs a name.".
    explicit MDesktopEntry(const MString& name);

    void SetDescription(const MString& description);
    /// The program, a path or a name to be looked for, and its arguments, and the directory that it is
    /// started in, if that is not empty. They reach the program as they stand here.
    /// Raises "A desktop entry cannot hold \"{0}\"." for control characters that the format cannot
    /// escape.
    void SetCommand(const MList<MString>& words, const MString& directory);
    /// The path of a picture, or a name that icon themes know.
    void SetIcon(const MString& icon);
    /// The directory that the command of an entry's text is started in; empty if it says none.
    [[nodiscard]] static std::string ReadDirectory(std::string_view text);
    /// The whole entry, in UTF-8. Raises "A desktop entry cannot hold names that are no UTF-8.".
    [[nodiscard]] const std::string& GetText() const;

private:
    void AddLine(const char* key, const std::string& value);

    std::string text;
};

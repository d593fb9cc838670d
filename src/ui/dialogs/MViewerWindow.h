#pragma once

#include "ui/dialogs/MDialogWindow.h"

/// Shows a page of rich text, as of help, which can be read in a web browser too.
class MViewerWindow : public MDialogWindow {
public:
    /// `text` has mark-up.
    MViewerWindow(const MString& title, const MString& text);

    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    void WriteHelpInfo(MXMLItem& item) override;

private:
    void OnBrowse(const MOnClickParams& params);
    void OnGenerate(const MOnClickParams& params);
    /// The page as HTML. Raises what writing a file raises.
    void WritePage(const MString& path) const;

    MString text;
};

#pragma once

#include "foundation/views/MProgressView.h"
#include "ui/control/MControl.h"

/// How far something is that takes its time, in percent.
///
/// Attributes: "value".
class MProgressBar : public MControl, public MProgressView {
public:
    explicit MProgressBar(MControl* parent = nullptr, const MString& name = MString());

    /// 0 to 100; other ones are cut. It is painted with the next tick, and only if a pixel changes.
    void SetPercent(double newPercent);
    [[nodiscard]] double GetPercent() const { return percent; }
    /// Shows it at once.
    void SetProgress(double maximum, double value) override;

    void LoadFromXml(MXMLItem& item) override;
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    void PaintContent(MDrawer& drawer) override;
    void WriteHelpInfo(MXMLItem& item) override;

private:
    /// What can be told apart on the screen.
    [[nodiscard]] int64_t GetPixels() const;

    double percent = 0;
    int64_t paintedPixels = 0;
};

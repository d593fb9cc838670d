#pragma once

#include "foundation/xml/MXMLItem.h"
#include "ui/control/MControl.h"

#include <functional>

/// A control of the class `Base` whose help somebody else writes, as for a control that stands for another
/// one.
template <class Base>
class MControlWithForwardGenerateDocCallback : public Base {
public:
    using Base::Base;
    using Callback = std::function<void(MXMLItem& item)>;

    /// Is called in place of the control's own help; null for that.
    void SetGenerateDocCallback(Callback newCallback) { callback = std::move(newCallback); }

    void WriteHelpInfo(MXMLItem& item) override {
        if (callback)
            callback(item);
        else
            Base::WriteHelpInfo(item);
    }

private:
    Callback callback;
};

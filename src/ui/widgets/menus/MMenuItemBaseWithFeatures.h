#pragma once

#include "ui/widgets/lists/MListBoxItemBaseWithFeatures.h"

#include <memory>

class MMenuBase;

/// What an item of a menu has. A check without a check box is a tick before the text.
class MMenuItemBaseWithFeatures : public MListBoxItemBaseWithFeatures {
public:
    explicit MMenuItemBaseWithFeatures(const MString& text = MString());
    ~MMenuItemBaseWithFeatures() override;

    /// As well "shortcut".
    void LoadFromXml(MXMLItem& item) override;

    MString shortcut;                    ///< the keys that do the same, shown at the right
    std::unique_ptr<MMenuBase> subMenu;  ///< opens beside the item, which cannot be chosen itself
};

#pragma once

#include "foundation/xml/MXMLItem.h"

/// The offer to look for updates once a product is installed, which its definition makes by `executeupdate`
/// with `enabled` 1. From then on `enabled` there is the answer.
class MUpdateOffer {
public:
    /// A product without `updateaddress` offers nothing; in one with it the answer is no.
    explicit MUpdateOffer(MXMLItem& definition) {
        if (!definition.HasAttribute("updateaddress")) return;
        answer = definition.GetOrAddSubItem("executeupdate");
        isMade = answer->GetInt32Attribute("enabled", 0) != 0;
        if (isMade) Accept(false);
    }

    [[nodiscard]] bool IsMade() const { return isMade; }
    void Accept(bool isAccepted) { answer->SetAttribute("enabled", isAccepted ? "1" : "0"); }
    [[nodiscard]] bool IsAccepted() const { return answer && answer->GetInt32Attribute("enabled", 0) != 0; }

private:
    MXMLItem* answer = nullptr;  ///< of the definition
    bool isMade = false;
};

#pragma once

#include "foundation/base/MList.h"
#include "install/definition/MSetupSession.h"

/// The alternatives that the definition offers as `configuration` elements, and the taking of one.
class MConfigurationChoice {
public:
    /// Raises "Could not find required attribute ({0})." (0) for an alternative without `id` or `name`.
    explicit MConfigurationChoice(MXMLItem& definition);

    /// The alternatives of this platform, in the order of the definition, which owns them.
    [[nodiscard]] const MList<MXMLItem, MListPointers>& GetAlternatives() const { return alternatives; }
    /// False for one that needs a 64-bit system on a system that is none.
    [[nodiscard]] bool IsAvailable(const MXMLItem& alternative) const;
    /// The alternative of that id, or null.
    [[nodiscard]] MXMLItem* Find(const MString& id) const;
    /// What is chosen as long as nobody chooses: the first alternative, or null if there is none.
    [[nodiscard]] MXMLItem* GetProposal() const;

    /// Writes what the alternative says into the session and rebuilds the macros. False, and nothing is
    /// written but the three values, if it needs a 64-bit system on a system that is none.
    [[nodiscard]] bool Apply(const MXMLItem& alternative, MSetupSession& session) const;

private:
    MList<MXMLItem, MListPointers> alternatives;
};

/// What the user is told when `MConfigurationChoice::Apply` refuses.
inline constexpr const char* MConfigurationNeeds64Bit =
    "This configuration does not support 32-bit operating system.";

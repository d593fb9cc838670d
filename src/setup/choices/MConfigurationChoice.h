#pragma once

#include "foundation/base/MList.h"
#include "foundation/module/MPlatform.h"
#include "install/definition/MSetupSession.h"

/// The alternatives that the definition offers as `configuration` elements, and the taking of one.
class MConfigurationChoice {
public:
    /// Raises "Could not find required attribute ({0})." (0) for an alternative without `id` or `name`.
    explicit MConfigurationChoice(MXMLItem& definition, bool is64BitSystem = MPlatform::Is64BitSystem());

    /// The alternatives of this platform, in the order of the definition, which owns them.
    [[nodiscard]] const MList<MXMLItem, MListPointers>& GetAlternatives() const { return alternatives; }
    /// False for one that needs a 64-bit system on a system that is none.
    [[nodiscard]] bool IsAvailable(const MXMLItem& alternative) const;
    /// The alternative of that id, or null.
    [[nodiscard]] MXMLItem* Find(const MString& id) const;
    /// What is chosen as long as nobody chooses: the first alternative, or null if there is none.
    [[nodiscard]] MXMLItem* GetProposal() const;

    /// Writes what the alternative says into the session and rebuilds the macros. Raises "This configuration
    /// does not support 32-bit operating system." (0) for one that is not available, of which only the three
    /// values are written.
    void Apply(const MXMLItem& alternative, MSetupSession& session) const;

private:
    const bool is64BitSystem;
    MList<MXMLItem, MListPointers> alternatives;
};

#pragma once

#include "streams/basic/MStream.h"
#include "streams/ciphers/MRSAKey.h"

#include <optional>

class MUpdateServer;
class MXMLItem;

/// What an installation believes of what comes over the network: anything, or with `updatekey` at the root of its state
/// only what its maker has signed. That is a public RSA key as its PEM file has it, without the lines around it and
/// without line ends.
class MUpdateTrust {
public:
    /// Raises "The key of the maker in \"setup.state\" cannot be read. ..." (0).
    explicit MUpdateTrust(const MXMLItem& state);

    /// Refuses what is not signed, before anybody has looked into it: the signature is what the server answers to
    /// `query`. Does nothing without a key. `name` is what the user knows. Raises "{0} is not signed by the maker of this
    /// software, or has been changed on its way. ..." (0) and what reading the content raises.
    void Require(const MString& name, MStream& content, const MUpdateServer& server,
                 const MString& query) const;

private:
    std::optional<MRSAKey> key;
};

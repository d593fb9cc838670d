#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <cstdint>

/// What the tool is to do.
enum class MBuilderCommand {
    Pack,
    Check,
    Inspect,
    Verify,
    Extract,
    Blob,
    DownloadSet,
    Update,
    Package,
    UpdateServer,
    Sign
};

/// How a payload is delivered.
enum class MPayloadForm {
    Executable,  ///< behind a copy of the setup program
    Data,        ///< a file of its own, with the companion that holds its digest
    FileSet,     ///< parts of limited size, with the index that names them
};

enum class MCompression { Bzip2, ZLib, None };

/// What an update is to say of itself; what is empty is taken from the newer version, or left out.
struct MOfferOptions {
    MString name;
    MString description;
    MString time;
    MString showInfo;
    MString execute;
    bool restarts = false;
};

/// A command line, taken apart.
struct MBuilderOptions {
    static constexpr int32_t MaximumThreads = 64;
    /// In bytes. The least is far below what is sensible for a download: it keeps a slip of the pen from
    /// making thousands of files.
    static constexpr int64_t MinimumPartSize = 64 * 1024;
    static constexpr int64_t DefaultPartSize = 100 * 1024 * 1024;
    /// The same of a download set. A downloader, which is a 32-bit program, holds a part in memory.
    static constexpr int64_t MinimumDownloadPartSize = 1024;
    static constexpr int64_t MaximumDownloadPartSize = 256 * 1024 * 1024;
    static constexpr int64_t DefaultDownloadPartSize = 1024 * 1024;

    MBuilderCommand command = MBuilderCommand::Pack;
    MString input;        ///< the definition, the folder of a blob or download, or the file to look into
    MString description;  ///< of a blob; empty to list one
    MString output;       ///< a file for packing, a directory for extracting and for a download set
    MString stub;  ///< the setup program; empty for the one beside the tool, or for none in a download set
                   ///< or an update
    MPayloadForm form = MPayloadForm::Executable;
    int64_t partSize = DefaultPartSize;
    MCompression compression = MCompression::Bzip2;
    int32_t level = 9;
    int32_t threads = 1;
    MList<MString> defines;  ///< each "NAME=TEXT"
    bool showsXML = false;
    MString id;                   ///< of a download set, or of a product on a server of several
    MList<MString> mirrors;       ///< base URLs
    MString newer;                ///< the version that an update leads to; `input` is the older one
    MList<MString> olderDefines;  ///< those of the older version, which count before `defines`
    MOfferOptions offer;
    MString base;          ///< path of a server's address
    MString key;           ///< a private key, to sign by
    MList<MString> files;  ///< to be signed
};

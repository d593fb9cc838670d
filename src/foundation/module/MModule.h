#pragma once

#include "foundation/base/MList.h"
#include "foundation/events/MEventTarget.h"
#include "foundation/module/MDataFolders.h"
#include "foundation/module/MServiceTable.h"
#include "foundation/text/MString.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

class MConsoleStream;
class MMemoryStream;
class MPluginLibrary;
class MResourceLibrary;

/// What is linked into a program for its module; either may be empty. The blocks live as long as the program.
struct MEmbeddedBlocks {
    std::span<const std::byte> resources;   ///< a resource library (docs/blob.md)
    std::span<const std::byte> globalData;  ///< of any form
};

/// One running program (or one loaded plug-in file) built on this library: its path and name, its
/// command line, its resources, its console and the table of services that others ask for by name.
///
/// Made and initialised on the main thread before anything else starts; `FilePath` and `Name` do not
/// change afterwards and may be read by any thread; the resources are read by one thread at a time. Once a module has been made, the end of the process waits
/// for no thread of an object that is older than the module.
class MModule : public MEventTarget, public MServiceTable, public MDataFolders {
public:
    /// What a plug-in file is handed when it is loaded: a dispatcher of services by name and the text of
    /// this module's data directory.
    struct Interface {
        void* (*dispatch)(const MString& service, void* argument);
        MString data;
    };

    MModule();
    MModule(const MModule&) = delete;
    MModule& operator=(const MModule&) = delete;
    ~MModule() override;

    /// A plug-in file has been loaded into this process: calls its "MLibraryDLLInitialize", if exported.
    virtual void DLLLoaded(MPluginLibrary& library);
    /// Finds the path and the name of the module, and its resources: those linked into the program, else
    /// those of the file beside it that has its name and the extension "mrf". Resources that are missing or
    /// damaged leave the library empty. Nothing that is thrown leaves it.
    virtual void Initialize();
    /// The body of the program; returns the process exit code. A module by itself has none and gives 0.
    [[nodiscard]] virtual int32_t Main();

    /// Runs `Main`; anything that is thrown out of it gives -1.
    [[nodiscard]] int32_t PerformMain_();

    /// The process-wide module, or null; not owned.
    [[nodiscard]] static MModule* GetInstance();
    static void SetInstance(MModule* module);
    /// The first module that was made in the process.
    [[nodiscard]] static MModule* GetHost();

    /// Canonical path of the executable or the plug-in file.
    [[nodiscard]] const MString& GetFilePath() const { return FilePath; }
    [[nodiscard]] const MString& GetName() const { return Name; }
    /// The system's handle of the program or the plug-in file; null stands for the program.
    void SetInstanceHandle(void* instance) { Instance = instance; }
    void SetArguments(const MList<MString>& arguments) { Arguments = arguments; }
    /// Before `Initialize`, which takes them.
    void SetEmbeddedBlocks(const MEmbeddedBlocks& blocks) { embeddedBlocks = blocks; }
    [[nodiscard]] MResourceLibrary& GetResources() const { return *Resources; }
    /// Empty if no data are linked in.
    [[nodiscard]] MMemoryStream& GetGlobalData() const { return *GlobalData; }

    /// Path of `file` in the user's directory for `subdirectory`, or for the module's name; the directory
    /// that is to hold it is created when missing. A file or a directory that is missing there is copied,
    /// with all it holds, from the same place in the shared directory.
    [[nodiscard]] MString GetDataPath_File_User(const MString& file, const MString& subdirectory,
                                                bool useModuleName) const;
    /// The text of the documentation file `name`; empty if there is no such file.
    [[nodiscard]] MString LoadDocumentation(const MString& name) const;

protected:
    MString FilePath;
    MString Name;
    const std::unique_ptr<MResourceLibrary> Resources;
    const std::unique_ptr<MMemoryStream> GlobalData;
    MList<MString> Arguments;
    const std::unique_ptr<MConsoleStream> Console;
    MString DocumentationDirectory = "Doc";
    void* Instance = nullptr;

private:
    void MLoadGlobalResources();

    MEmbeddedBlocks embeddedBlocks;
};

#pragma once

#include "foundation/base/MList.h"
#include "foundation/events/MEventTarget.h"
#include "foundation/text/MString.h"
#include "streams/basic/MConsoleStream.h"
#include "streams/basic/MMemoryStream.h"

#include <cstdint>

/// What a module needs of a plug-in file that has been loaded into its process.
class MPluginLibrary : public MObject {
public:
    /// The exported function of that name, or null.
    [[nodiscard]] virtual void* FindFunction(const MString& name) = 0;
    /// What the library's own initialisation returned.
    void* initialization = nullptr;
};

/// One running program (or one loaded plug-in file) built on this library: its path and name, its
/// command line, its console and the table of services that others ask for by name.
///
/// Made and initialised on the main thread before anything else starts; `FilePath` and `Name` do not
/// change afterwards and may be read by any thread.
class MModule : public MEventTarget {
public:
    using ServiceFunction = void* (*)(void* argument);
    /// What a plug-in file is handed when it is loaded: a dispatcher of services by name and the text of
    /// this module's data directory.
    struct Interface {
        void* (*dispatch)(const MString& service, void* argument);
        MString data;
    };

    static constexpr int32_t MaximumServices = 64;

    MModule();
    MModule(const MModule&) = delete;
    MModule& operator=(const MModule&) = delete;
    ~MModule() override;

    /// A plug-in file has been loaded into this process: calls its "MLibraryDLLInitialize", if exported.
    virtual void DLLLoaded(MPluginLibrary& library);
    /// Finds the path and the name of the module. Nothing that is thrown leaves it.
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

    /// Whether the process is ending from inside a library entry, where no thread can be waited for.
    [[nodiscard]] static bool IsProcessEnding();
    static void SetProcessEnding(bool ending);

    /// Canonical path of the executable or the plug-in file.
    [[nodiscard]] const MString& GetFilePath() const { return FilePath; }
    [[nodiscard]] const MString& GetName() const { return Name; }
    void SetName(const MString& name) { Name = name; }
    [[nodiscard]] void* GetInstanceHandle() const { return Instance; }
    void SetInstanceHandle(void* instance) { Instance = instance; }
    [[nodiscard]] const MList<MString>& GetArguments() const { return Arguments; }
    void SetArguments(const MList<MString>& arguments) { Arguments = arguments; }

    /// Appends a service. Beyond `MaximumServices` raises "Too many services." (0).
    void AddService(const MString& name, ServiceFunction function);
    /// Calls the service of that name, the first added winning; null if there is none.
    void* CallService(const MString& name, void* argument) const;

    /// The shared data directory of the maker, joined with `subdirectory`, created when missing.
    [[nodiscard]] static MString GetDataPath_Global(const MString& subdirectory);
    /// The user's, created when missing; with `fallbackToGlobal` a missing one gives the shared directory.
    [[nodiscard]] static MString GetDataPath_User(const MString& subdirectory, bool fallbackToGlobal = false);
    /// Path of `file` in the user's directory for `subdirectory`, or for the module's name. A file that is
    /// missing there is copied from the same place in the shared directory.
    [[nodiscard]] MString GetDataPath_File_User(const MString& file, const MString& subdirectory,
                                                bool useModuleName) const;
    /// The text of a documentation file; empty if it is missing.
    [[nodiscard]] MString LoadDocumentation(const MString& name) const;

protected:
    MString FilePath;
    MString Name;
    MMemoryStream GlobalData;
    int32_t ServiceMask = 31;
    MList<MString> Arguments;
    MConsoleStream Console;
    MString DocumentationDirectory = "Doc";
    void* Instance = nullptr;

private:
    struct Service {
        MString name;
        ServiceFunction function;
    };

    MList<Service> Services;
};

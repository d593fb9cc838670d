// OpenGL of Windows.

#include "foundation/base/MRaise.h"
#include "foundation/module/MPlatform.h"
#include "foundation/win32/MWindowsHeader.h"
#include "ui/opengl/MOpenGLSystem.h"

namespace {

[[noreturn]] void Fail(const char* message) {
    MRaise(MExceptionGeneral, message, MSystemErrorText());
}

template <class Function>
void FindIn(HMODULE library, Function& function, const char* name) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    if (!function) Fail("Error opening OpenGL library. {0}");
}

/// The functions of WGL that are called. The library stays for as long as the process lives: drivers hook
/// themselves in.
struct WGLFunctions {
    WGLFunctions() : library(LoadLibraryW(L"opengl32.dll")) {
        if (!library) Fail("Error opening OpenGL library. {0}");
        FindIn(library, CreateContext, "wglCreateContext");
        FindIn(library, DeleteContext, "wglDeleteContext");
        FindIn(library, GetExtension, "wglGetProcAddress");
        FindIn(library, MakeCurrent, "wglMakeCurrent");
        FindIn(library, ShareLists, "wglShareLists");
    }

    const HMODULE library;
    decltype(&wglCreateContext) CreateContext;
    decltype(&wglDeleteContext) DeleteContext;
    decltype(&wglGetProcAddress) GetExtension;
    decltype(&wglMakeCurrent) MakeCurrent;
    decltype(&wglShareLists) ShareLists;
};

/// The device context of a window, and a rendering context for it.
class WindowContext final : public MOpenGLContext {
public:
    struct Messages {
        const char* device;
        const char* format;
        const char* context;
    };

    WindowContext(const WGLFunctions& wgl, HWND window, int& format, const Messages& messages)
        : wgl(wgl), window(window), device(GetDC(window)) {
        if (!device) Fail(messages.device);
        try {
            PIXELFORMATDESCRIPTOR wanted = GetWanted();
            if (!format) format = ChoosePixelFormat(device, &wanted);
            if (!format) Fail("Error retrieving OpenGL pixel format. {0}");
            if (!SetPixelFormat(device, format, &wanted)) Fail(messages.format);
            context = wgl.CreateContext(device);
            if (!context) Fail(messages.context);
        } catch (...) {
            ReleaseDC(window, device);
            throw;
        }
    }
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    ~WindowContext() override {
        wgl.DeleteContext(context);
        ReleaseDC(window, device);
    }

    void JoinTo(const WindowContext& global) const {
        if (!wgl.ShareLists(global.context, context)) Fail("Error joining OpenGL context to global. {0}");
    }
    bool MakeCurrent() override { return wgl.MakeCurrent(device, context); }
    void Release() override { wgl.MakeCurrent(nullptr, nullptr); }
    void Swap() override { SwapBuffers(device); }

private:
    static PIXELFORMATDESCRIPTOR GetWanted() {
        PIXELFORMATDESCRIPTOR wanted{};
        wanted.nSize = sizeof wanted;
        wanted.nVersion = 1;
        wanted.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER | PFD_DEPTH_DONTCARE;
        wanted.iPixelType = PFD_TYPE_RGBA;
        wanted.cColorBits = 24;
        return wanted;
    }

    const WGLFunctions& wgl;
    const HWND window;
    const HDC device;
    HGLRC context = nullptr;
};

/// A window that nobody sees, for the context that all others share with.
class HiddenWindow {
public:
    HiddenWindow()
        : window(CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                 GetModuleHandleW(nullptr), nullptr)) {
        if (!window) Fail("Error creating global device context. {0}");
    }
    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;
    ~HiddenWindow() { DestroyWindow(window); }

    [[nodiscard]] HWND Get() const { return window; }

private:
    const HWND window;
};

class System final : public MOpenGLSystem {
public:
    std::unique_ptr<MOpenGLContext> CreateContext(const MNativeWindow& window) override {
        auto context = std::make_unique<WindowContext>(
            wgl, reinterpret_cast<HWND>(window.handle), format,
            WindowContext::Messages{"Error initializing OpenGL pixel format. {0}",
                                    "Error initializing OpenGL pixel format. {0}",
                                    "Error creating OpenGL context. {0}"});
        context->JoinTo(global);
        return context;
    }
    void* FindFunction(const char* name) override {
        // The library has those of OpenGL 1.1, the driver the others; some drivers give small numbers for
        // what they lack.
        if (const auto own = GetProcAddress(wgl.library, name)) return reinterpret_cast<void*>(own);
        const auto address = reinterpret_cast<intptr_t>(wgl.GetExtension(name));
        return address >= -1 && address <= 3 ? nullptr : reinterpret_cast<void*>(address);
    }

private:
    const WGLFunctions wgl;
    int format = 0;
    const HiddenWindow window;
    const WindowContext global{wgl, window.Get(), format,
                               WindowContext::Messages{"Error creating global device context. {0}",
                                                       "Error initializing global device context. {0}",
                                                       "Error creating global OpenGL context. {0}"}};
};

}  // namespace

std::unique_ptr<MOpenGLSystem> MOpenGLSystem::Open(const MNativeWindow&) {
    return std::make_unique<System>();
}

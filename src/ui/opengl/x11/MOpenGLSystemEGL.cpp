// OpenGL of a display of X by EGL, which takes the connection that the windows have.

#include "foundation/base/MRaise.h"
#include "ui/opengl/MOpenGLSystem.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <cstring>
#include <dlfcn.h>
#include <vector>

namespace {

/// The functions of EGL that are called, found in its library.
struct EGLFunctions {
    EGLFunctions() {
        void* const library = dlopen("libEGL.so.1", RTLD_NOW | RTLD_LOCAL);
        if (!library) MRaise(MExceptionGeneral, "Error opening OpenGL library. {0}", MString(dlerror()));
        Find(library, BindAPI, "eglBindAPI");
        Find(library, ChooseConfig, "eglChooseConfig");
        Find(library, CreateContext, "eglCreateContext");
        Find(library, CreateWindowSurface, "eglCreateWindowSurface");
        Find(library, DestroyContext, "eglDestroyContext");
        Find(library, DestroySurface, "eglDestroySurface");
        Find(library, GetConfigAttrib, "eglGetConfigAttrib");
        Find(library, GetError, "eglGetError");
        Find(library, GetPlatformDisplay, "eglGetPlatformDisplay");
        Find(library, GetProcAddress, "eglGetProcAddress");
        Find(library, Initialize, "eglInitialize");
        Find(library, MakeCurrent, "eglMakeCurrent");
        Find(library, QueryString, "eglQueryString");
        Find(library, SwapBuffers, "eglSwapBuffers");
        Find(library, SwapInterval, "eglSwapInterval");
        Find(library, Terminate, "eglTerminate");
    }

    [[noreturn]] void Fail(const char* message) const {
        MRaise(MExceptionGeneral, message, MFormat("EGL {0}", static_cast<int32_t>(GetError())));
    }

    decltype(&eglBindAPI) BindAPI;
    decltype(&eglChooseConfig) ChooseConfig;
    decltype(&eglCreateContext) CreateContext;
    decltype(&eglCreateWindowSurface) CreateWindowSurface;
    decltype(&eglDestroyContext) DestroyContext;
    decltype(&eglDestroySurface) DestroySurface;
    decltype(&eglGetConfigAttrib) GetConfigAttrib;
    decltype(&eglGetError) GetError;
    decltype(&eglGetPlatformDisplay) GetPlatformDisplay;
    decltype(&eglGetProcAddress) GetProcAddress;
    decltype(&eglInitialize) Initialize;
    decltype(&eglMakeCurrent) MakeCurrent;
    decltype(&eglQueryString) QueryString;
    decltype(&eglSwapBuffers) SwapBuffers;
    decltype(&eglSwapInterval) SwapInterval;
    decltype(&eglTerminate) Terminate;

private:
    template <class Function>
    static void Find(void* library, Function& function, const char* name) {
        function = reinterpret_cast<Function>(dlsym(library, name));
        if (!function) MRaise(MExceptionGeneral, "Error opening OpenGL library. {0}", MString(name));
    }
};

class Context final : public MOpenGLContext {
public:
    Context(const EGLFunctions& egl, EGLDisplay display, EGLConfig config, EGLContext global,
            EGLNativeWindowType window)
        : egl(egl), display(display) {
        surface = egl.CreateWindowSurface(display, config, window, nullptr);
        if (!surface) egl.Fail("Error initializing OpenGL pixel format. {0}");
        context = egl.CreateContext(display, config, global, nullptr);
        if (context) return;
        const bool isRefusedTogether = egl.GetError() == EGL_BAD_MATCH;
        egl.DestroySurface(display, surface);
        egl.Fail(isRefusedTogether ? "Error joining OpenGL context to global. {0}"
                                   : "Error creating OpenGL context. {0}");
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    ~Context() override {
        egl.DestroyContext(display, context);
        egl.DestroySurface(display, surface);
    }

    bool MakeCurrent() override {
        if (!egl.MakeCurrent(display, surface, surface, context)) return false;
        // Who waits for the screen in the thread of the user interface stands still with a hidden window.
        egl.SwapInterval(display, 0);
        return true;
    }
    void Release() override { egl.MakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT); }
    void Swap() override { egl.SwapBuffers(display, surface); }

private:
    const EGLFunctions& egl;
    const EGLDisplay display;
    EGLSurface surface;
    EGLContext context;
};

class System final : public MOpenGLSystem {
public:
    explicit System(const MNativeWindow& window) {
        const char* const extensions = egl.QueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
        // Without the windows' connection EGL opens one of its own, to the display of the environment.
        const bool isShared = extensions && std::strstr(extensions, "EGL_EXT_platform_xcb");
        display = isShared ? egl.GetPlatformDisplay(EGL_PLATFORM_XCB_EXT, window.connection, nullptr)
                           : egl.GetPlatformDisplay(EGL_PLATFORM_X11_EXT, EGL_DEFAULT_DISPLAY, nullptr);
        if (!display || !egl.Initialize(display, nullptr, nullptr))
            egl.Fail("Error creating global device context. {0}");
        try {
            ChooseConfig(window.visual);
            if (!egl.BindAPI(EGL_OPENGL_API)) egl.Fail("Error initializing global device context. {0}");
            global = egl.CreateContext(display, config, EGL_NO_CONTEXT, nullptr);
            if (!global) egl.Fail("Error creating global OpenGL context. {0}");
        } catch (...) {
            egl.Terminate(display);
            throw;
        }
    }
    System(const System&) = delete;
    System& operator=(const System&) = delete;
    ~System() override {
        egl.DestroyContext(display, global);
        egl.Terminate(display);
    }

    std::unique_ptr<MOpenGLContext> CreateContext(const MNativeWindow& window) override {
        return std::make_unique<Context>(egl, display, config, global,
                                         static_cast<EGLNativeWindowType>(window.handle));
    }
    void* FindFunction(const char* name) override {
        return reinterpret_cast<void*>(egl.GetProcAddress(name));
    }

private:
    [[nodiscard]] EGLint Get(EGLConfig one, EGLint attribute) const {
        EGLint value = 0;
        egl.GetConfigAttrib(display, one, attribute, &value);
        return value;
    }
    /// The simplest one for windows of this visual.
    void ChooseConfig(uint32_t visual) {
        const EGLint wanted[] = {EGL_SURFACE_TYPE,
                                 EGL_WINDOW_BIT,
                                 EGL_RENDERABLE_TYPE,
                                 EGL_OPENGL_BIT,
                                 EGL_RED_SIZE,
                                 8,
                                 EGL_GREEN_SIZE,
                                 8,
                                 EGL_BLUE_SIZE,
                                 8,
                                 EGL_NONE};
        EGLint count = 0;
        egl.ChooseConfig(display, wanted, nullptr, 0, &count);
        std::vector<EGLConfig> configs(static_cast<size_t>(count));
        egl.ChooseConfig(display, wanted, configs.data(), count, &count);
        for (const EGLConfig& one : configs) {
            if (static_cast<uint32_t>(Get(one, EGL_NATIVE_VISUAL_ID)) != visual) continue;
            if (Get(one, EGL_SAMPLE_BUFFERS) != 0) continue;
            config = one;
            return;
        }
        egl.Fail("Error retrieving OpenGL pixel format. {0}");
    }

    const EGLFunctions egl;
    EGLDisplay display = nullptr;
    EGLConfig config = nullptr;
    EGLContext global = nullptr;
};

}  // namespace

std::unique_ptr<MOpenGLSystem> MOpenGLSystem::Open(const MNativeWindow& window) {
    return std::make_unique<System>(window);
}

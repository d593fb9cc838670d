#include "ui/opengl/MOpenGLFunctions.h"

#include "foundation/base/MRaise.h"
#include "ui/opengl/MOpenGLSystem.h"

#include <cstdlib>
#include <string>

namespace {

/// Finds functions by their names, and tells what there is.
class Loader {
public:
    explicit Loader(MOpenGLSystem& system) : system(system) {}

    template <class Function>
    void Find(Function& function, const char* name, const char* suffix = "") {
        const std::string whole = std::string("gl") + name + suffix;
        function = reinterpret_cast<Function>(system.FindFunction(whole.c_str()));
    }
    template <class Function>
    void FindNeeded(Function& function, const char* name) {
        Find(function, name);
        if (!function) MRaise(MExceptionGeneral, "Error opening OpenGL library. {0}", MString(name));
    }
    void ReadVersion(const MOpenGLFunctions& gl) {
        version = std::atof(Read(gl, MGL::VERSION));
        extensions = " " + std::string(Read(gl, MGL::EXTENSIONS)) + " ";
    }
    /// Addresses are given for functions, too, that do nothing here.
    [[nodiscard]] bool Has(double sinceVersion, const char* extension) const {
        return version >= sinceVersion ||
               extensions.find(std::string(" ") + extension + " ") != std::string::npos;
    }

private:
    static const char* Read(const MOpenGLFunctions& gl, uint32_t name) {
        const auto* const text = reinterpret_cast<const char*>(gl.GetString(name));
        return text ? text : "";
    }

    MOpenGLSystem& system;
    double version = 0;
    std::string extensions;
};

}  // namespace

void MOpenGLFunctions::Load(MOpenGLSystem& system) {
    Loader loader(system);
#define FUNCTION(result, name, arguments) loader.FindNeeded(name, #name);
#define EXTENSION(result, name, arguments)
#include "ui/opengl/MOpenGLFunctions.inc"
#undef EXTENSION
#undef FUNCTION
    loader.ReadVersion(*this);
    if (loader.Has(1.3, "GL_ARB_texture_env_combine")) loader.Find(ActiveTexture, "ActiveTexture");
    if (loader.Has(1.4, "GL_EXT_blend_subtract")) loader.Find(BlendEquation, "BlendEquation");
    const bool isCore = loader.Has(3.0, "GL_ARB_framebuffer_object");
    if (!isCore && !loader.Has(3.0, "GL_EXT_framebuffer_object")) return;
    const char* const suffix = isCore ? "" : "EXT";
    loader.Find(BindFramebuffer, "BindFramebuffer", suffix);
    loader.Find(FramebufferTexture2D, "FramebufferTexture2D", suffix);
    loader.Find(CheckFramebufferStatus, "CheckFramebufferStatus", suffix);
    loader.Find(DeleteFramebuffers, "DeleteFramebuffers", suffix);
    loader.Find(GenFramebuffers, "GenFramebuffers", suffix);
    if (!BindFramebuffer || !FramebufferTexture2D || !CheckFramebufferStatus || !DeleteFramebuffers)
        GenFramebuffers = nullptr;
}

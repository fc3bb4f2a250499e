#include "platform/SharedLibrary.h"

#include <dlfcn.h>

#include <utility>

#include "platform/NativePath.h"

CSharedLibrary::CSharedLibrary(const std::string &path) : path_(path) {
    std::string native = ToNativePath(path);
    // The loader looks a name without a slash up among the system's libraries.
    if (native.find('/') == native.npos) native.insert(0, "./");
    handle_ = dlopen(native.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle_) return;
    const char *words = dlerror();
    error_ = words ? words : "cannot be loaded";
}

CSharedLibrary::~CSharedLibrary() {
    if (handle_) dlclose(handle_);
}

CSharedLibrary::CSharedLibrary(CSharedLibrary &&other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)),
      path_(std::exchange(other.path_, {})),
      error_(std::exchange(other.error_, {})) {}

CSharedLibrary &CSharedLibrary::operator=(CSharedLibrary &&other) noexcept {
    std::swap(handle_, other.handle_);
    std::swap(path_, other.path_);
    std::swap(error_, other.error_);
    return *this;
}

void *CSharedLibrary::Find(const char *symbol) const { return handle_ ? dlsym(handle_, symbol) : nullptr; }

// A shared library loaded at run time.
#pragma once

#include <string>

// Owns one reference to a library; freed with the object. Move only.
class CSharedLibrary {
public:
    CSharedLibrary() = default;
    explicit CSharedLibrary(const std::string &path);  // Windows form; a failed load leaves IsLoaded() false
    ~CSharedLibrary();
    CSharedLibrary(CSharedLibrary &&other) noexcept;
    CSharedLibrary &operator=(CSharedLibrary &&other) noexcept;

    bool IsLoaded() const { return handle_ != nullptr; }
    const std::string &Path() const { return path_; }
    const std::string &Error() const { return error_; }  // the loader's words for a failed load

    void *Find(const char *symbol) const;  // null when the library doesn't export it

    template <typename Function>
    Function *Get(const char *symbol) const {
        return reinterpret_cast<Function *>(Find(symbol));
    }

private:
    void *handle_ = nullptr;
    std::string path_, error_;
};

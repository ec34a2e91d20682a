#pragma once

#include <string>

namespace orbisgrid {

/// A shared library that is loaded when it is needed, and stays loaded.
class SharedLibrary {
public:
    /// Loads the file at `path`. What the libraries that it needs call in each other is bound when
    /// it is called first, which saves a tenth of the loading.
    explicit SharedLibrary(const std::string& path);

    /// The function of that name; nothing where the library could not be loaded or has none.
    using Function = void (*)();
    Function function(const char* name) const;

    /// Why something is missing, in the system's words; asked right after it was found missing.
    static std::string whatIsWrong();

private:
    void* m_handle;
};

} // namespace orbisgrid

#pragma once

#include <string>

namespace orbisgrid {

/// A shared library that is loaded when it is needed, and stays loaded.
class SharedLibrary {
public:
    /// Where the names are looked up that the library, and what it needs, leave to others. The
    /// program means the executable and what that one needs.
    enum class Names {
        programFirst, ///< in the program, then in the library and what it needs
        libraryFirst, ///< the other way round; quicker where what it needs has most of them
    };

    /// Loads the file at `path`. What the libraries that it needs call in each other is bound when
    /// it is called first, which saves a tenth of the loading. `libraryFirst` is not for a program
    /// into which something was put beforehand (LD_PRELOAD, or another malloc than the C
    /// library's): the library would go past it, and free what it did not give. There it is
    /// `programFirst`.
    explicit SharedLibrary(const std::string& path, Names names = Names::programFirst);

    /// The function of that name; nothing where the library could not be loaded or has none.
    using Function = void (*)();
    Function function(const char* name) const;

    /// Why something is missing, in the system's words; asked right after it was found missing.
    static std::string whatIsWrong();

private:
    void* m_handle;
};

} // namespace orbisgrid

#include "platform/win32/calls/LibrarySearch.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

namespace korvanta {
namespace {

// A library that somebody has put into the folder in which the program was started.
class PlantedLibrary {
  public:
    PlantedLibrary() {
        ::GetCurrentDirectoryA(MAX_PATH, before_);
        char folder[MAX_PATH];
        ::GetTempPathA(MAX_PATH, folder);
        ::SetCurrentDirectoryA(folder);
        char system[MAX_PATH];
        ::GetSystemDirectoryA(system, MAX_PATH);
        copied_ = ::CopyFileA((std::string(system) + "\\version.dll").c_str(), name, FALSE) != 0;
    }
    PlantedLibrary(const PlantedLibrary&) = delete;
    PlantedLibrary& operator=(const PlantedLibrary&) = delete;
    ~PlantedLibrary() {
        ::DeleteFileA(name);
        ::SetCurrentDirectoryA(before_);
    }

    bool Copied() const { return copied_; }
    static bool Loads() {
        const HMODULE library = ::LoadLibraryA(name);
        return library && ::FreeLibrary(library);
    }

  private:
    static constexpr const char* name = "planted.dll";
    char before_[MAX_PATH] = {};
    bool copied_ = false;
};

TEST(LibrarySearchTests, ALibraryInTheCurrentFolderIsNoLongerFoundAndTheSystemsOwnAre) {
    const PlantedLibrary planted;
    ASSERT_TRUE(planted.Copied());
    ASSERT_TRUE(PlantedLibrary::Loads()) << "as Windows does without being told";
    SearchLibrariesInSystemFolder();
    EXPECT_FALSE(PlantedLibrary::Loads());
    const HMODULE own = ::LoadLibraryA("version.dll");
    EXPECT_NE(own, nullptr);
    ::FreeLibrary(own);
}

}  // namespace
}  // namespace korvanta

#pragma once

#include <string>

namespace services {

// A fresh folder for one test, gone with everything in it when destroyed.
class Folder {
  public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    // Without a trailing backslash.
    const std::u16string& Path() const { return path_; }

  private:
    std::u16string path_;
};

}  // namespace services

#pragma once

#include <cstdio>
#include <memory>
#include <string>

#include "platform/FileSystem.h"
#include "platform/Mutex.h"

namespace korvanta::bench {

// One file of this machine under every path that is asked for, to be read; nothing else.
class OneFile : public FileSystem {
  public:
    explicit OneFile(std::string path) : path_(std::move(path)) {}

    std::uint32_t OpenForReading(const std::u16string& /*path*/, std::unique_ptr<InputFile>& file) override {
        auto opened = std::make_unique<Input>(std::fopen(path_.c_str(), "rb"));
        if (!opened->IsOpen()) {
            return windowsError::fileNotFound;
        }
        file = std::move(opened);
        return windowsError::none;
    }
    std::uint32_t OpenForWriting(const std::u16string& /*path*/, OutputMode /*mode*/,
                                 std::unique_ptr<OutputFile>& /*file*/) override {
        return windowsError::accessDenied;
    }
    bool FileExists(const std::u16string& /*path*/) override { return true; }
    bool FolderExists(const std::u16string& /*path*/) override { return true; }
    std::uint32_t LastModified(const std::u16string& /*path*/, std::uint64_t& time) override {
        time = 1;
        return windowsError::none;
    }
    std::uint32_t Copy(const std::u16string& /*from*/, const std::u16string& /*to*/) override {
        return windowsError::none;
    }
    std::uint32_t Delete(const std::u16string& /*path*/) override { return windowsError::none; }
    std::u16string TemporaryFolder() override { return u"C:\\Temp"; }
    std::u16string TemporaryName() override { return u"x.tmp"; }

  private:
    class Input : public InputFile {
      public:
        explicit Input(std::FILE* file) : file_(file) {
            if (file_) {
                std::setvbuf(file_.get(), nullptr, _IONBF, 0);
            }
        }
        bool IsOpen() const { return file_ != nullptr; }
        std::uint32_t Read(void* buffer, std::size_t size, std::size_t& got) override {
            got = std::fread(buffer, 1, size, file_.get());
            return windowsError::none;
        }

      private:
        struct Closer {
            void operator()(std::FILE* file) const { std::fclose(file); }
        };
        std::unique_ptr<std::FILE, Closer> file_;
    };

    std::string path_;
};

// What the mutex of the real platform costs the thread that owns it: a comparison and a count.
class OwnedMutexes : public MutexFactory {
  public:
    std::unique_ptr<Mutex> CreateOwned(std::uint32_t& errorCode) override {
        errorCode = 0;
        return std::make_unique<Owned>();
    }

  private:
    class Owned : public Mutex {
      public:
        WaitResult Wait(std::uint32_t /*milliseconds*/) override {
            ++acquisitions_;
            return WaitResult::Acquired;
        }
        bool Release(std::uint32_t& /*errorCode*/) override {
            --acquisitions_;
            return true;
        }

      private:
        std::uint32_t acquisitions_ = 0;
    };
};

}  // namespace korvanta::bench

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "system/Files.h"

namespace zek::test {

/// A disk in memory that can fail on request.
class MemoryFiles final : public Files {
 public:
  std::map<std::string, std::string> files;
  std::optional<FileError::Reason> failWrites;
  std::optional<FileError::Reason> failReads;
  std::set<std::string> unreadable;

  bool Exists(const std::string& path) const override { return files.contains(path); }

  FileContent Read(const std::string& path) const override {
    if (failReads) return {{}, FileError{path, *failReads, "read failed"}};
    if (unreadable.contains(path))
      return {{}, FileError{path, FileError::Reason::InUse, "read failed"}};
    const auto file = files.find(path);
    if (file == files.end()) return {{}, FileError{path, FileError::Reason::Missing, "missing"}};
    return {file->second, std::nullopt};
  }

  std::optional<FileError> Write(const std::string& path, std::string_view bytes) override {
    if (failWrites) return FileError{path, *failWrites, "write failed"};
    files[path] = bytes;
    return std::nullopt;
  }

  std::function<void()> onAppend = [] {};  // a slow disk takes its time here

  std::optional<FileError> Append(const std::string& path, std::string_view bytes) override {
    onAppend();
    return Write(path, (Exists(path) ? files[path] : std::string()).append(bytes));
  }

  std::optional<FileError> Remove(const std::string& path) override {
    if (failWrites) return FileError{path, *failWrites, "remove failed"};
    files.erase(path);
    return std::nullopt;
  }

  std::set<std::string> locked;

  TakenLock Lock(const std::string& path) override {
    if (locked.contains(path)) return {nullptr, FileError{path, FileError::Reason::InUse, "held"}};
    return {std::make_unique<Held>(locked, path), std::nullopt};
  }

  CreatedFile Create(const std::string& path) override {
    if (failWrites) return {nullptr, FileError{path, *failWrites, "create failed"}};
    return {std::make_unique<Output>(*this, path), std::nullopt};
  }

  std::optional<FileError> MakeDirectory(const std::string& path) override {
    if (failWrites) return FileError{path, *failWrites, "no directory"};
    return std::nullopt;
  }

  std::vector<std::string> List(const std::string& directory) const override {
    std::vector<std::string> names;
    for (const auto& [path, bytes] : files) {
      if (!path.starts_with(directory)) continue;
      const std::string name = path.substr(directory.size());
      if (name.find('/') == std::string::npos) names.push_back(name);
    }
    return names;
  }

 private:
  class Held final : public FileLock {
   public:
    Held(std::set<std::string>& locked, const std::string& path)
        : locked_(locked), at_(locked.insert(path).first) {}
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() override { locked_.erase(at_); }

   private:
    std::set<std::string>& locked_;
    std::set<std::string>::iterator at_;
  };

  class Output final : public OutputFile {
   public:
    Output(MemoryFiles& disk, std::string path) : disk_(disk), path_(std::move(path)) {}

    std::optional<FileError> Append(std::string_view bytes) override {
      if (disk_.failWrites) return FileError{path_, *disk_.failWrites, "write failed"};
      bytes_ += bytes;
      return std::nullopt;
    }
    std::optional<FileError> Commit() override { return disk_.Write(path_, bytes_); }

   private:
    MemoryFiles& disk_;
    std::string path_;
    std::string bytes_;
  };
};

}  // namespace zek::test

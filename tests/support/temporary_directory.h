#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace voxilane {

// A directory of its own for a test, gone afterwards.
class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "voxilane.XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
  ~TemporaryDirectory() { std::filesystem::remove_all(path_); }

  std::string operator/(const std::string& name) const { return path_ + "/" + name; }
  const std::string& path() const { return path_; }

  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(*this / name, std::ios::binary) << bytes;
    return *this / name;
  }

  std::string read(const std::string& name) const {
    std::ifstream file(*this / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::size_t fileCount() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
  }

 private:
  std::string path_;
};

}  // namespace voxilane

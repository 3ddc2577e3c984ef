// A temporary folder for one test, removed at the end.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace bw::test {

class TempDir {
public:
    TempDir() {
        std::random_device rd;
        path_ = std::filesystem::temp_directory_path() / ("bwtest-" + std::to_string(rd()) + std::to_string(rd()));
        std::filesystem::create_directories(path_);
    }
    ~TempDir() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    std::string Path() const { return path_.string(); }
    std::string File(const std::string& name) const { return (path_ / name).string(); }
    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream out(path_ / name, std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    std::string Read(const std::string& name) const {
        std::ifstream in(path_ / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

private:
    std::filesystem::path path_;
};

}  // namespace bw::test

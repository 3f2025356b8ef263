// An owned file descriptor: closed when it goes. Move only.
#pragma once

#include <unistd.h>

#include <utility>

namespace dayward {

class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(other.release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~FileDescriptor() {
        if (number_ >= 0) ::close(number_);
    }

    [[nodiscard]] int get() const { return number_; }
    int release() { return std::exchange(number_, -1); }
    explicit operator bool() const { return number_ >= 0; }

private:
    int number_ = -1;
};

}  // namespace dayward

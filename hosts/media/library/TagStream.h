// A file as the tag reader sees it: read-only, and only so much of it.
//
// Files are hostile. A tag that says it is huge, or a parser that looks for a sound in gigabytes of nothing,
// comes to an end when the budget is read; from then on the file seems to end there. Pipes and devices are no
// files.
#pragma once

#include "platform/foundation/FileDescriptor.h"

#include <filesystem>

#include <taglib/tiostream.h>

namespace playback {

class TagStream final : public TagLib::IOStream {
public:
    /// Opens the file; isOpen() tells whether that went well.
    explicit TagStream(const std::filesystem::path& path);

    TagLib::FileName name() const override { return path_.c_str(); }
    bool isOpen() const override { return static_cast<bool>(file_); }
    TagLib::ByteVector readBlock(unsigned long length) override;
    void seek(long offset, Position position) override;
    long tell() const override { return position_; }
    long length() override { return length_; }

    // Nothing is ever written.
    bool readOnly() const override { return true; }
    void writeBlock(const TagLib::ByteVector&) override {}
    void insert(const TagLib::ByteVector&, unsigned long, unsigned long) override {}
    void removeBlock(unsigned long, unsigned long) override {}
    void truncate(long) override {}

private:
    std::filesystem::path path_;
    foundation::FileDescriptor file_;
    long position_ = 0;
    long length_ = 0;
    unsigned long budget_;
};

} // namespace playback

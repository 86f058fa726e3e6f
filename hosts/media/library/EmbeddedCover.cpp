#include "hosts/media/library/EmbeddedCover.h"

#include <taglib/aifffile.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mpegfile.h>
#include <taglib/wavfile.h>
#include <taglib/xiphcomment.h>

namespace playback {

namespace {

using TagLib::ByteVector;

ByteVector coverOf(const TagLib::ID3v2::Tag* tag) {
    using Picture = TagLib::ID3v2::AttachedPictureFrame;
    ByteVector cover;
    if (!tag)
        return cover;
    for (const auto* frame : tag->frameList("APIC")) {
        const auto* picture = dynamic_cast<const Picture*>(frame);
        if (!picture || picture->picture().isEmpty())
            continue;
        if (picture->type() == Picture::FrontCover)
            return picture->picture();
        if (cover.isEmpty())
            cover = picture->picture();
    }
    return cover;
}

ByteVector coverOf(const TagLib::List<TagLib::FLAC::Picture*>& pictures) {
    for (const auto* picture : pictures)
        if (picture->type() == TagLib::FLAC::Picture::FrontCover && !picture->data().isEmpty())
            return picture->data();
    return pictures.isEmpty() ? ByteVector() : pictures.front()->data();
}

ByteVector coverOf(const TagLib::MP4::Tag* tag) {
    const auto pictures = tag ? tag->item("covr").toCoverArtList() : TagLib::MP4::CoverArtList();
    return pictures.isEmpty() ? ByteVector() : pictures.front().data();
}

} // namespace

ByteVector embeddedCover(TagLib::File& file) {
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(&file))
        return coverOf(mpeg->ID3v2Tag());
    if (auto* flac = dynamic_cast<TagLib::FLAC::File*>(&file))
        return coverOf(flac->pictureList());
    if (auto* mp4 = dynamic_cast<TagLib::MP4::File*>(&file))
        return coverOf(mp4->tag());
    if (auto* wav = dynamic_cast<TagLib::RIFF::WAV::File*>(&file))
        return coverOf(wav->ID3v2Tag());
    if (auto* aiff = dynamic_cast<TagLib::RIFF::AIFF::File*>(&file))
        return coverOf(aiff->tag());
    if (auto* comment = dynamic_cast<TagLib::Ogg::XiphComment*>(file.tag()))
        return coverOf(comment->pictureList());
    return {};
}

} // namespace playback

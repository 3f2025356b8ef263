#include <cstdio>
// libjpeg's header needs the one above.
#include <jerror.h>
#include <jpeglib.h>

#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <cstdlib>
#include <memory>

#include "platform/Image.h"
#include "platform/ImageCoding.h"

namespace dayward {

namespace {

/// A block of 8 by 8 pixels takes a bit at the least.
constexpr std::uint64_t kPixelsPerByte = 512;
/// Each scan goes over the whole picture; real ones have about ten.
constexpr int kMostScans = 200;

/// The library reports failure through a jump; nothing with a destructor may live between it and here.
struct ErrorManager {
    jpeg_error_mgr manager;
    std::jmp_buf jump;
    char message[JMSG_LENGTH_MAX];
};

void failJPEG(j_common_ptr info) {
    auto* errors = reinterpret_cast<ErrorManager*>(info->err);
    info->err->format_message(info, errors->message);
    std::longjmp(errors->jump, 1);
}

/// The library paints grey what the data do not have; that is a broken picture. Other warnings are
/// common in good ones.
void warnJPEG(j_common_ptr info, int level) {
    const int code = info->err->msg_code;
    if (level < 0 && (code == JWRN_JPEG_EOF || code == JWRN_HIT_MARKER)) failJPEG(info);
}

void checkScans(j_common_ptr info) {
    if (!info->is_decompressor || reinterpret_cast<j_decompress_ptr>(info)->input_scan_number <= kMostScans) return;
    info->err->msg_code = JERR_BAD_PROGRESSION;
    failJPEG(info);
}

jpeg_error_mgr* prepare(ErrorManager& errors) {
    jpeg_std_error(&errors.manager);
    errors.manager.error_exit = failJPEG;
    errors.manager.emit_message = warnJPEG;
    errors.manager.output_message = [](j_common_ptr) {};
    errors.message[0] = '\0';
    return &errors.manager;
}

std::uint8_t product(unsigned a, unsigned b) { return static_cast<std::uint8_t>((a * b + 127) / 255); }

/// Four inks to red, green and blue, in place. Inverted values are the custom of most makers.
void convertInks(std::uint8_t* row, unsigned width, bool areInverted) {
    for (std::uint8_t* pixel = row; pixel < row + 4 * static_cast<std::size_t>(width); pixel += 4) {
        const unsigned flip = areInverted ? 0 : 255;
        const unsigned light = pixel[3] ^ flip;
        for (int i = 0; i < 3; ++i) pixel[i] = product(pixel[i] ^ flip, light);
        pixel[3] = 255;
    }
}

struct Decoder {
    ErrorManager errors{};
    jpeg_progress_mgr progress{};
    jpeg_decompress_struct info{};

    Decoder() {
        info.err = prepare(errors);
        jpeg_create_decompress(&info);
        progress.progress_monitor = checkScans;
        info.progress = &progress;
        info.mem->max_memory_to_use = 1L << 30;
    }
    ~Decoder() { jpeg_destroy_decompress(&info); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    bool readHeader(const Data& bytes) {
        if (setjmp(errors.jump)) return false;
        jpeg_mem_src(&info, bytes.data(), bytes.size());
        jpeg_read_header(&info, TRUE);
        return true;
    }

    /// The least size that the library decodes to and that still fills the place.
    void shrinkToFill(PixelSize place) {
        const auto fills = [&](unsigned eighths) {
            return std::uint64_t(info.image_width) * eighths >= 8 * std::uint64_t(std::max(0, place.width)) &&
                   std::uint64_t(info.image_height) * eighths >= 8 * std::uint64_t(std::max(0, place.height));
        };
        info.scale_num = 1;
        info.scale_denom = 8;
        while (info.scale_num < 8 && !fills(info.scale_num)) ++info.scale_num;
        jpeg_calc_output_dimensions(&info);
    }

    bool readPixels(std::uint8_t* rgba) {
        if (setjmp(errors.jump)) return false;
        const bool hasInks = info.jpeg_color_space == JCS_CMYK || info.jpeg_color_space == JCS_YCCK;
        info.out_color_space = hasInks ? JCS_CMYK : JCS_EXT_RGBA;
        jpeg_start_decompress(&info);
        while (info.output_scanline < info.output_height) {
            JSAMPROW row = rgba + 4 * static_cast<std::size_t>(info.output_scanline) * info.output_width;
            jpeg_read_scanlines(&info, &row, 1);
            if (hasInks) convertInks(row, info.output_width, info.saw_Adobe_marker != 0);
        }
        jpeg_finish_decompress(&info);
        return true;
    }
};

struct Encoder {
    ErrorManager errors{};
    jpeg_compress_struct info{};
    unsigned char* bytes = nullptr;
    unsigned long size = 0;

    Encoder() {
        info.err = prepare(errors);
        jpeg_create_compress(&info);
    }
    ~Encoder() {
        jpeg_destroy_compress(&info);
        std::free(bytes);
    }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    /// `row` has room for one row of red, green and blue.
    bool write(const Image& image, int quality, std::uint8_t* row) {
        if (setjmp(errors.jump)) {
            // Which buffer is alive is known to the library alone until it has finished.
            bytes = nullptr;
            return false;
        }
        jpeg_mem_dest(&info, &bytes, &size);
        info.image_width = static_cast<JDIMENSION>(image.width());
        info.image_height = static_cast<JDIMENSION>(image.height());
        info.input_components = 3;
        info.in_color_space = JCS_RGB;
        jpeg_set_defaults(&info);
        jpeg_set_quality(&info, quality, TRUE);
        jpeg_start_compress(&info, TRUE);
        const std::uint8_t* pixel = image.rgba().data();
        while (info.next_scanline < info.image_height) {
            for (int x = 0; x < image.width(); ++x, pixel += 4) {
                for (int i = 0; i < 3; ++i) row[3 * x + i] = onWhite(pixel[i], pixel[3]);
            }
            jpeg_write_scanlines(&info, &row, 1);
        }
        jpeg_finish_compress(&info);
        return true;
    }

    static std::uint8_t onWhite(unsigned color, unsigned alpha) { return 255 - product(255 - color, alpha); }
};

std::unexpected<Error> jpegError(const ErrorManager& errors) {
    return imageFailure(std::string("JPEG: ") + errors.message);
}

}  // namespace

Result<Image> Image::decodeJPEG(const Data& bytes) { return decodeJPEG(bytes, kWholeSize); }

Result<Image> Image::decodeJPEG(const Data& bytes, PixelSize filling) {
    if (bytes.empty()) return imageFailure("empty");
    Decoder decoder;
    if (!decoder.readHeader(bytes)) return jpegError(decoder.errors);
    TRY_VOID(checkImageSize(decoder.info.image_width, decoder.info.image_height, bytes.size(), kPixelsPerByte));
    decoder.shrinkToFill(filling);
    const auto width = decoder.info.output_width;
    const auto height = decoder.info.output_height;
    Data rgba(4 * static_cast<std::size_t>(width) * height);
    if (!decoder.readPixels(rgba.data())) return jpegError(decoder.errors);
    return Image(static_cast<int>(width), static_cast<int>(height), std::move(rgba));
}

Result<Data> Image::jpegData(double quality) const {
    if (isEmpty()) return imageFailure("an empty image has no JPEG form");
    const double percent = std::isnan(quality) ? 0 : std::clamp(quality, 0.0, 1.0) * 100;
    if (width_ > JPEG_MAX_DIMENSION || height_ > JPEG_MAX_DIMENSION) return imageFailure("too large for a JPEG");
    Encoder encoder;
    Data row(3 * static_cast<std::size_t>(width_));
    if (!encoder.write(*this, static_cast<int>(std::lround(percent)), row.data())) return jpegError(encoder.errors);
    return Data(encoder.bytes, encoder.bytes + encoder.size);
}

}  // namespace dayward

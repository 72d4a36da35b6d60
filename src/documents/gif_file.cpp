#include "documents/gif_file.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <gif_lib.h>
#include <memory>
#include <unordered_map>

namespace qv {

namespace {

constexpr std::uintmax_t max_gif_bytes = 64u * 1024 * 1024;
constexpr long long max_gif_pixels = 100LL * 1000 * 1000;

// A picture as palette indexes, one byte a pixel, row after row.
struct Indexed
{
    std::vector<GifColorType> palette;
    std::vector<GifPixelType> pixels;
};

// The exact palette of a picture of at most 256 colours; nullopt when it has more.
std::optional<Indexed> exact_palette(const QImage& rgb)
{
    Indexed out;
    const int width = rgb.width();
    const int height = rgb.height();
    out.pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    std::unordered_map<QRgb, GifPixelType> index;
    QRgb last = 0;
    GifPixelType last_index = 0;
    bool have_last = false;
    std::size_t at = 0;
    // Runs of one colour are the rule in a drawing: the last colour is looked up only once.
    for (int y = 0; y < height; ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        for (int x = 0; x < width; ++x) {
            const QRgb colour = line[x] | 0xFF000000u;
            if (!have_last || colour != last) {
                auto found = index.find(colour);
                if (found == index.end()) {
                    if (out.palette.size() == 256)
                        return std::nullopt;
                    found = index.emplace(colour, static_cast<GifPixelType>(out.palette.size())).first;
                    out.palette.push_back({ static_cast<GifByteType>(qRed(colour)),
                        static_cast<GifByteType>(qGreen(colour)), static_cast<GifByteType>(qBlue(colour)) });
                }
                last = colour;
                last_index = found->second;
                have_last = true;
            }
            out.pixels[at++] = last_index;
        }
    }
    return out;
}

// A richer picture reduced by Qt to 256 colours.
Indexed reduced_palette(const QImage& rgb)
{
    const QImage reduced = rgb.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither);
    Indexed out;
    for (QRgb colour : reduced.colorTable())
        out.palette.push_back({ static_cast<GifByteType>(qRed(colour)), static_cast<GifByteType>(qGreen(colour)),
            static_cast<GifByteType>(qBlue(colour)) });
    out.pixels.resize(static_cast<std::size_t>(reduced.width()) * static_cast<std::size_t>(reduced.height()));
    for (int y = 0; y < reduced.height(); ++y)
        std::memcpy(out.pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(reduced.width()),
            reduced.constScanLine(y), static_cast<std::size_t>(reduced.width()));
    return out;
}

// giflib wants a palette whose size is a power of two.
int palette_size(std::size_t colours)
{
    int size = 2;
    while (static_cast<std::size_t>(size) < colours)
        size *= 2;
    return size;
}

int write_to_vector(GifFileType* gif, const GifByteType* data, int length)
{
    auto* out = static_cast<std::vector<unsigned char>*>(gif->UserData);
    out->insert(out->end(), data, data + length);
    return length;
}

struct Reader
{
    const std::vector<unsigned char>* bytes;
    std::size_t at = 0;
};

int read_from_vector(GifFileType* gif, GifByteType* data, int length)
{
    auto* reader = static_cast<Reader*>(gif->UserData);
    const auto left = reader->bytes->size() - reader->at;
    const auto count = std::min<std::size_t>(left, static_cast<std::size_t>(std::max(length, 0)));
    std::memcpy(data, reader->bytes->data() + reader->at, count);
    reader->at += count;
    return static_cast<int>(count);
}

QRgb map_colour(const ColorMapObject* map, int index, QRgb fallback)
{
    if (!map || index < 0 || index >= map->ColorCount)
        return fallback;
    const auto& c = map->Colors[index];
    return qRgb(c.Red, c.Green, c.Blue);
}

} // namespace

std::vector<unsigned char> encode_gif(const QImage& picture)
{
    if (picture.isNull() || picture.width() > 65535 || picture.height() > 65535)
        return {};
    const QImage rgb = picture.convertToFormat(QImage::Format_RGB32);
    auto indexed = exact_palette(rgb);
    if (!indexed)
        indexed = reduced_palette(rgb);
    auto palette = indexed->palette;
    palette.resize(static_cast<std::size_t>(palette_size(palette.size())), GifColorType { 255, 255, 255 });

    std::vector<unsigned char> out;
    int error = 0;
    GifFileType* gif = EGifOpen(&out, write_to_vector, &error);
    if (!gif)
        return {};
    std::unique_ptr<ColorMapObject, void (*)(ColorMapObject*)> map(
        GifMakeMapObject(static_cast<int>(palette.size()), palette.data()), GifFreeMapObject);
    bool ok = map && EGifPutScreenDesc(gif, rgb.width(), rgb.height(), 8, 0, map.get()) == GIF_OK
        && EGifPutImageDesc(gif, 0, 0, rgb.width(), rgb.height(), false, nullptr) == GIF_OK;
    for (int y = 0; ok && y < rgb.height(); ++y)
        ok = EGifPutLine(gif,
                 indexed->pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(rgb.width()),
                 rgb.width())
            == GIF_OK;
    ok = EGifCloseFile(gif, &error) == GIF_OK && ok;
    return ok ? out : std::vector<unsigned char> {};
}

std::optional<QImage> decode_gif(const std::vector<unsigned char>& bytes)
{
    Reader reader { &bytes };
    int error = 0;
    GifFileType* gif = DGifOpen(&reader, read_from_vector, &error);
    if (!gif)
        return std::nullopt;
    std::optional<QImage> picture;
    const long long screen = static_cast<long long>(gif->SWidth) * gif->SHeight;
    if (DGifSlurp(gif) == GIF_OK && gif->ImageCount >= 1 && gif->SWidth > 0 && gif->SHeight > 0
        && screen <= max_gif_pixels) {
        const SavedImage& frame = gif->SavedImages[0];
        const ColorMapObject* map = frame.ImageDesc.ColorMap ? frame.ImageDesc.ColorMap : gif->SColorMap;
        QImage image(gif->SWidth, gif->SHeight, QImage::Format_RGB32);
        image.fill(map_colour(gif->SColorMap, gif->SBackGroundColor, qRgb(255, 255, 255)));
        const auto& d = frame.ImageDesc;
        for (int y = 0; y < d.Height; ++y) {
            const int sy = d.Top + y;
            if (sy < 0 || sy >= image.height())
                continue;
            auto* line = reinterpret_cast<QRgb*>(image.scanLine(sy));
            for (int x = 0; x < d.Width; ++x) {
                const int sx = d.Left + x;
                if (sx >= 0 && sx < image.width())
                    line[sx] = map_colour(map, frame.RasterBits[static_cast<std::size_t>(y) * d.Width + x], line[sx]);
            }
        }
        picture = std::move(image);
    }
    DGifCloseFile(gif, &error);
    return picture;
}

std::optional<QImage> read_gif(const std::filesystem::path& file)
{
    std::error_code ec;
    const auto size = std::filesystem::file_size(file, ec);
    if (ec || size > max_gif_bytes)
        return std::nullopt;
    std::ifstream in(file, std::ios::binary);
    std::vector<unsigned char> bytes(static_cast<std::size_t>(size));
    if (!in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size())))
        return std::nullopt;
    return decode_gif(bytes);
}

} // namespace qv

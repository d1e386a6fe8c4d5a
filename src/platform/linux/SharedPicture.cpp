#include "platform/linux/SharedPicture.h"
#include "platform/linux/Descriptor.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <xcb/shm.h>

/// The format of pixels of this depth, of which the server says how they lie; invalid for unusual ones.
static QImage::Format formatOf(const XConnection &connection, int depth)
{
    int bits = 0;
    for (auto each = xcb_setup_pixmap_formats_iterator(&connection.setup()); each.rem > 0; xcb_format_next(&each)) {
        if (each.data->depth == depth) bits = each.data->bits_per_pixel;
    }
    if (bits == 32 && (depth == 24 || depth == 32)) return QImage::Format_RGB32;
    if (bits == 32 && depth == 30) return QImage::Format_RGB30;
    if (bits == 16 && depth == 16) return QImage::Format_RGB16;
    return QImage::Format_Invalid;
}

namespace {
struct Mapping {
    void *memory = MAP_FAILED;
    size_t length = 0;

    explicit Mapping(int file, size_t size) : length(size)
    {
        memory = mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    }
    Mapping(const Mapping &) = delete;
    ~Mapping()
    {
        if (memory != MAP_FAILED) munmap(memory, length);
    }
};
}

/// A descriptor can only be sent to a server on this machine.
static bool isLocal(XConnection &connection)
{
    sockaddr address{};
    socklen_t length = sizeof address;
    return getsockname(xcb_get_file_descriptor(connection), &address, &length) == 0 && address.sa_family == AF_UNIX;
}

static int lineLengthOf(int width, QImage::Format format)
{
    return (width * (format == QImage::Format_RGB16 ? 2 : 4) + 3) & ~3;
}

/// The server writes straight into memory that the picture then owns. Null when it does not share memory with us.
static QImage sharedPicture(XConnection &connection, xcb_window_t window, const QRect &place, QImage::Format format)
{
    if (!connection.has(xcb_shm_id) || !isLocal(connection)) return {};
    const int lineLength = lineLengthOf(place.width(), format);
    const size_t length = size_t(lineLength) * size_t(place.height());
    const Descriptor memory(memfd_create("picture", MFD_CLOEXEC));
    if (!memory || ftruncate(memory.number(), off_t(length)) != 0) return {};
    auto mapping = std::make_unique<Mapping>(memory.number(), length);
    const int sent = fcntl(memory.number(), F_DUPFD_CLOEXEC, 3); // XCB closes the one that it sends
    if (mapping->memory == MAP_FAILED || sent < 0) return {};

    const xcb_shm_seg_t segment = xcb_generate_id(connection);
    xcb_shm_attach_fd(connection, segment, sent, false);
    const auto asked =
        xcb_shm_get_image(connection, window, qint16(place.x()), qint16(place.y()), quint16(place.width()),
                          quint16(place.height()), ~0u, XCB_IMAGE_FORMAT_Z_PIXMAP, segment, 0);
    xcb_shm_detach(connection, segment);
    if (!connection.reply(xcb_shm_get_image_reply, asked)) return {};
    auto *bytes = static_cast<uchar *>(mapping->memory);
    return QImage(
        bytes, place.width(), place.height(), lineLength, format,
        [](void *owned) { delete static_cast<Mapping *>(owned); }, mapping.release());
}

static QImage sentPicture(XConnection &connection, xcb_window_t window, const QRect &place, QImage::Format format)
{
    const auto asked = xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, qint16(place.x()),
                                     qint16(place.y()), quint16(place.width()), quint16(place.height()), ~0u);
    auto answer = connection.reply(xcb_get_image_reply, asked);
    const int lineLength = lineLengthOf(place.width(), format);
    if (!answer || xcb_get_image_data_length(answer.get()) < lineLength * place.height()) return {};
    const uchar *bytes = xcb_get_image_data(answer.get());
    return QImage(bytes, place.width(), place.height(), lineLength, format, std::free, answer.release());
}

QImage pictureOf(XConnection &connection, xcb_window_t window, const QRect &place)
{
    if (place.isEmpty()) return {};
    const auto geometry = connection.reply(xcb_get_geometry_reply, xcb_get_geometry(connection, window));
    const auto format = geometry ? formatOf(connection, geometry->depth) : QImage::Format_Invalid;
    if (format == QImage::Format_Invalid) return {};
    const QImage shared = sharedPicture(connection, window, place, format);
    return shared.isNull() ? sentPicture(connection, window, place, format) : shared;
}

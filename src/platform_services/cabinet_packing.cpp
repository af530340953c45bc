#include "platform_services/cabinet_packing.h"

#include <algorithm>
#include <exception>
#include <libgcab.h>
#include <memory>
#include <string>

#include "basics/fault.h"

namespace tavernook {

namespace {

constexpr i64 block_size = 32768;  // bytes of the source, but for the last block
constexpr std::string_view block_start = "CK";

// What the library writes, and what ended it early. The library says nothing of how far it is; each
// of its blocks comes in a piece of its own.
struct Packing {
    File& cabinet;
    const CabinetProgress& progress;
    i64 size;  // of the source
    i64 blocks = 0;
    i64 position = 0;
    std::exception_ptr stopped{};

    void write(std::string_view part) {
        cabinet.write(position, part);
        position += static_cast<i64>(part.size());
        if (part.size() <= 4 || !part.starts_with(block_start)) return;
        ++blocks;
        progress(static_cast<int>(std::min<i64>(99, blocks * block_size * 100 / size)));
    }
};

// --- the same as a stream of GLib -------------------------------------------------------------

struct PackingStream {
    GOutputStream parent;
    Packing* packing;
};
struct PackingStreamClass {
    GOutputStreamClass parent;
};

Packing& packing_of(void* stream) {
    return *static_cast<PackingStream*>(stream)->packing;
}

gssize write_part(GOutputStream* stream, const void* part, gsize size, GCancellable*,
                  GError** error) {
    Packing& packing = packing_of(stream);
    try {
        packing.write({static_cast<const char*>(part), size});
        return static_cast<gssize>(size);
    } catch (...) {
        packing.stopped = std::current_exception();
        g_set_error_literal(error, G_IO_ERROR, G_IO_ERROR_CANCELLED, "stopped");
        return -1;
    }
}

goffset tell(GSeekable* stream) {
    return packing_of(stream).position;
}

gboolean can_seek(GSeekable*) {
    return TRUE;
}

// The library seeks from the beginning only.
gboolean seek(GSeekable* stream, goffset offset, GSeekType from, GCancellable*, GError**) {
    if (from != G_SEEK_SET) return FALSE;
    packing_of(stream).position = offset;
    return TRUE;
}

gboolean can_truncate(GSeekable*) {
    return FALSE;
}

void seekable_init(GSeekableIface* seekable) {
    seekable->tell = tell;
    seekable->can_seek = can_seek;
    seekable->seek = seek;
    seekable->can_truncate = can_truncate;
}

G_DEFINE_TYPE_WITH_CODE(PackingStream, packing_stream, G_TYPE_OUTPUT_STREAM,
                        G_IMPLEMENT_INTERFACE(G_TYPE_SEEKABLE, seekable_init))

void packing_stream_init(PackingStream*) {}

void packing_stream_class_init(PackingStreamClass* type) {
    type->parent.write_fn = write_part;
}

// --- the work -----------------------------------------------------------------------------------

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <typename Object>
using Ref = std::unique_ptr<Object, Unref>;

std::string bytes_of(File& file) {
    std::string bytes(static_cast<std::size_t>(file.length()), '\0');
    bytes.resize(file.read(0, bytes.data(), bytes.size()));
    return bytes;
}

Ref<GCabFile> entry_with(std::string_view name, const std::string& bytes) {
    GBytes* content = g_bytes_new_static(bytes.data(), bytes.size());
    Ref<GCabFile> entry(gcab_file_new_with_bytes(std::string(name).c_str(), content));
    g_bytes_unref(content);
    gcab_file_set_attributes(entry.get(), GCAB_FILE_ATTRIBUTE_ARCH);
    GDateTime* now = g_date_time_new_now_local();
    gcab_file_set_date_time(entry.get(), now);
    g_date_time_unref(now);
    return entry;
}

bool write_cabinet(GCabFile* entry, GOutputStream* stream) {
    const Ref<GCabCabinet> cabinet(gcab_cabinet_new());
    const Ref<GCabFolder> folder(gcab_folder_new(GCAB_COMPRESSION_MSZIP));
    return gcab_cabinet_add_folder(cabinet.get(), folder.get(), nullptr) != FALSE &&
           gcab_folder_add_file(folder.get(), entry, FALSE, nullptr, nullptr) != FALSE &&
           gcab_cabinet_write_simple(cabinet.get(), stream, nullptr, nullptr, nullptr, nullptr) !=
               FALSE;
}

}  // namespace

void pack_cabinet(File& source, std::string_view entry, File& cabinet,
                  const CabinetProgress& progress) {
    progress(0);
    const std::string bytes = bytes_of(source);
    Packing packing{cabinet, progress, static_cast<i64>(bytes.size())};
    const Ref<GCabFile> file = entry_with(entry, bytes);
    const Ref<GOutputStream> stream(
        static_cast<GOutputStream*>(g_object_new(packing_stream_get_type(), nullptr)));
    reinterpret_cast<PackingStream*>(stream.get())->packing = &packing;
    const bool is_written = write_cabinet(file.get(), stream.get());
    if (packing.stopped) std::rethrow_exception(packing.stopped);
    if (!is_written) throw Fault(fault_number::path_file_access_error);
    progress(100);
}

}  // namespace tavernook

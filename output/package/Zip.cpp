#include "output/package/Zip.h"

#include "output/package/ZipLibrary.h"
#include "support/Error.h"

#include <memory>

namespace package {

namespace {

constexpr zip_uint16_t kFirstDay = 1 << 5 | 1; // 1 January 1980
constexpr zip_int32_t kLevel = 6;

[[noreturn]] void Raise(const char *text) {
    throw support::Error(support::kErrInvalidProcedureCall, QStringLiteral("ZipFile"),
                         QString::fromUtf8(text));
}

[[noreturn]] void RaiseNoMemory() { support::Raise(support::kErrOutOfMemory, QStringLiteral("ZipFile")); }

// The bytes that the archive is written to.
struct Target {
    Target() : source(Zip().zip_source_buffer_create(nullptr, 0, 0, nullptr)) {
        if (!source) RaiseNoMemory();
        Zip().zip_source_keep(source); // a second reference, as the archive gives one back when it is closed
    }
    ~Target() { Zip().zip_source_free(source); }
    Target(const Target &) = delete;
    Target &operator=(const Target &) = delete;

    QByteArray Bytes() const {
        if (Zip().zip_source_open(source) < 0)
            Raise(Zip().zip_error_strerror(Zip().zip_source_error(source)));
        Zip().zip_source_seek(source, 0, SEEK_END);
        QByteArray bytes(qsizetype(Zip().zip_source_tell(source)), Qt::Uninitialized);
        Zip().zip_source_seek(source, 0, SEEK_SET);
        const bool whole =
            Zip().zip_source_read(source, bytes.data(), zip_uint64_t(bytes.size())) == bytes.size();
        Zip().zip_source_close(source);
        if (!whole) Raise("The archive can't be read back.");
        return bytes;
    }

    zip_source_t *source;
};

using Archive = std::unique_ptr<zip_t, decltype(ZipLibrary::zip_discard)>;

Archive Open(const Target &target) {
    zip_error_t error;
    Zip().zip_error_init(&error);
    zip_t *archive = Zip().zip_open_from_source(target.source, ZIP_TRUNCATE, &error);
    Zip().zip_error_fini(&error);
    if (!archive) {
        Zip().zip_source_free(target.source);
        RaiseNoMemory();
    }
    return {archive, Zip().zip_discard};
}

// The bytes aren't copied: they outlive the archive.
void Add(zip_t *archive, const ZipEntry &entry) {
    zip_source_t *content =
        Zip().zip_source_buffer(archive, entry.bytes.constData(), zip_uint64_t(entry.bytes.size()), 0);
    if (!content) RaiseNoMemory();
    const zip_int64_t at =
        Zip().zip_file_add(archive, entry.name.toUtf8().constData(), content, ZIP_FL_ENC_UTF_8);
    if (at < 0) {
        Zip().zip_source_free(content);
        Raise(Zip().zip_strerror(archive));
    }
    Zip().zip_set_file_compression(archive, zip_uint64_t(at), entry.packed ? ZIP_CM_DEFLATE : ZIP_CM_STORE,
                                   kLevel);
    Zip().zip_file_set_dostime(archive, zip_uint64_t(at), 0, kFirstDay, 0);
}

} // namespace

QByteArray ZipFile(const std::vector<ZipEntry> &entries) {
    const Target target;
    Archive archive = Open(target);
    for (const ZipEntry &entry : entries) Add(archive.get(), entry);
    if (Zip().zip_close(archive.get()) < 0) Raise(Zip().zip_strerror(archive.get()));
    (void)archive.release();
    return target.Bytes();
}

} // namespace package

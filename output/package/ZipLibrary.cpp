#include "output/package/ZipLibrary.h"

#include "support/Error.h"
#include "support/LateLibrary.h"

#include <QCoreApplication>

namespace package {

namespace {

constexpr int kVersion = 4; // of the library's binary interface

ZipLibrary Load() {
    support::LateLibrary library(QStringLiteral("zip"), kVersion);
    const auto resolve = [&library](const char *name, auto &function) {
        if (library.Resolve(name, function)) return;
        throw support::Error(
            support::kErrInvalidProcedureCall, QStringLiteral("ZipFile"),
            QCoreApplication::translate("ZipFile", "The library that packs files can't be loaded:\n%1")
                .arg(library.Why()));
    };
    ZipLibrary zip{};
    resolve("zip_close", zip.zip_close);
    resolve("zip_discard", zip.zip_discard);
    resolve("zip_error_fini", zip.zip_error_fini);
    resolve("zip_error_init", zip.zip_error_init);
    resolve("zip_error_strerror", zip.zip_error_strerror);
    resolve("zip_file_add", zip.zip_file_add);
    resolve("zip_file_set_dostime", zip.zip_file_set_dostime);
    resolve("zip_open_from_source", zip.zip_open_from_source);
    resolve("zip_set_file_compression", zip.zip_set_file_compression);
    resolve("zip_source_buffer", zip.zip_source_buffer);
    resolve("zip_source_buffer_create", zip.zip_source_buffer_create);
    resolve("zip_source_close", zip.zip_source_close);
    resolve("zip_source_error", zip.zip_source_error);
    resolve("zip_source_free", zip.zip_source_free);
    resolve("zip_source_keep", zip.zip_source_keep);
    resolve("zip_source_open", zip.zip_source_open);
    resolve("zip_source_read", zip.zip_source_read);
    resolve("zip_source_seek", zip.zip_source_seek);
    resolve("zip_source_tell", zip.zip_source_tell);
    resolve("zip_strerror", zip.zip_strerror);
    return zip;
}

} // namespace

const ZipLibrary &Zip() {
    static const ZipLibrary zip = Load();
    return zip;
}

} // namespace package

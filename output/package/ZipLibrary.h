// libzip, loaded when the first archive is written: loading the libraries that it brings along takes a
// twentieth of the program's start. The names are the library's own.
#pragma once

#include <zip.h>

namespace package {

struct ZipLibrary {
    decltype(&::zip_close) zip_close;
    decltype(&::zip_discard) zip_discard;
    decltype(&::zip_error_fini) zip_error_fini;
    decltype(&::zip_error_init) zip_error_init;
    decltype(&::zip_error_strerror) zip_error_strerror;
    decltype(&::zip_file_add) zip_file_add;
    decltype(&::zip_file_set_dostime) zip_file_set_dostime;
    decltype(&::zip_open_from_source) zip_open_from_source;
    decltype(&::zip_set_file_compression) zip_set_file_compression;
    decltype(&::zip_source_buffer) zip_source_buffer;
    decltype(&::zip_source_buffer_create) zip_source_buffer_create;
    decltype(&::zip_source_close) zip_source_close;
    decltype(&::zip_source_error) zip_source_error;
    decltype(&::zip_source_free) zip_source_free;
    decltype(&::zip_source_keep) zip_source_keep;
    decltype(&::zip_source_open) zip_source_open;
    decltype(&::zip_source_read) zip_source_read;
    decltype(&::zip_source_seek) zip_source_seek;
    decltype(&::zip_source_tell) zip_source_tell;
    decltype(&::zip_strerror) zip_strerror;
};

// Raises error 5 where the library is missing or lacks one of these.
const ZipLibrary &Zip();

} // namespace package

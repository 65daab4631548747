// The library's header, with what it needs to be read as C++.
#pragma once

#include <glib.h> // first: the library's header would put it into extern "C"

#include <mdbtools.h>

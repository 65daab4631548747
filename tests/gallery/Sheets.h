// What the gallery draws: a sheet for each kind of things.
#pragma once

#include <span>

namespace diagram {
class Node;
class Surface;
} // namespace diagram

namespace gallery {

struct Sheet {
    const char *name;
    void (*draw)(diagram::Surface &);
    bool zooms; // written in several zooms and resolutions too
};

std::span<const Sheet> Sheets();

// A node of the usual size in column and row of a sheet.
diagram::Node &AddAt(diagram::Surface &surface, double column, double row, const char *text = "");

void DrawArrows(diagram::Surface &surface);
void DrawLinkStyles(diagram::Surface &surface);
void DrawJumps(diagram::Surface &surface);
void DrawLinkLines(diagram::Surface &surface);
void DrawRoutes(diagram::Surface &surface);
void DrawRoutesBeside(diagram::Surface &surface);
void DrawRoutesOfMap(diagram::Surface &surface);

} // namespace gallery

// Memory of the model with its scene.
#pragma once

namespace bench {

// Bytes that a node with its 1.3 links, their bends and its share of the index takes, on a surface of so many
// nodes.
double BytesPerNode(int nodes);

} // namespace bench

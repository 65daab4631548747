#include "vector/engine/ContentTarget.h"

#include <QHash>

namespace vector {

std::size_t qHash(const TextFont &font, std::size_t seed) {
    return qHashMulti(seed, font.name, font.points, font.bold, font.italic);
}

} // namespace vector

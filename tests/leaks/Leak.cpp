// Loses 77 bytes, which the leak checker must report.
#include <cstdlib>

namespace {

void *volatile kept = nullptr;

} // namespace

int main() {
    kept = std::malloc(77);
    kept = nullptr;
    return 0;
}

// The slices of the delivered sample, as they were drawn.
#pragma once

#include "support/headless/HeadlessDesktop.h"

#include <functional>
#include <QJsonObject>
#include <QTemporaryDir>
#include <vector>

namespace diagram {
class Surface;
}

namespace gallery {

// Those without a timeline, whose places say when.
class Sample {
public:
    // Sets the program's folder. Ends the program for a sample that can't be read.
    Sample();
    int Count() const { return int(slices_.size()); }
    // Builds the slice anew for `use`, which gets its name, too.
    void With(int slice, const std::function<void(diagram::Surface &, const QString &)> &use) const;

private:
    support::HeadlessDesktop desktop_;
    QTemporaryDir folder_;
    std::vector<QJsonObject> slices_;
};

} // namespace gallery

// A link as it would look on its map.
#pragma once

#include "dialogs/Sample.h"

namespace dialogs {

class LinkSample : public Sample {
    Q_OBJECT
public:
    LinkSample(const diagram::Surface &like, QWidget *parent);

    // Paints a link with look and text of `values`; a long text is cut.
    void Show(const diagram::LinkData &values);
    const diagram::Link &Link() const { return *link_; }

private:
    diagram::Link *link_;
};

} // namespace dialogs

// The modal forms of the program by name, for routines that stand below the folder of the form.
#pragma once

#include "support/Desktop.h"

#include <functional>
#include <map>

namespace support {

class FormTable : public DialogHost {
public:
    // Shows the form and gives true when its user chose OK.
    using Show = std::function<bool(void *argument, Owner owner)>;

    // A second form of one name replaces the first.
    void Add(const QString &form, Show show);
    // Error 5 "Unknown form NAME" for a form that was not added.
    bool ShowModal(const QString &form, void *argument, Owner owner) override;
    bool Knows(const QString &form) const override { return forms_.contains(form); }

private:
    std::map<QString, Show> forms_;
};

} // namespace support

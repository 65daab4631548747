#include "support/FormTable.h"

#include "support/Error.h"

namespace support {

void FormTable::Add(const QString &form, Show show) { forms_[form] = std::move(show); }

bool FormTable::ShowModal(const QString &form, void *argument, Owner owner) {
    const auto found = forms_.find(form);
    if (found == forms_.end())
        throw Error(kErrInvalidProcedureCall, QStringLiteral("ShowModal"),
                    QStringLiteral("Unknown form ") + form);
    return found->second(argument, owner);
}

} // namespace support

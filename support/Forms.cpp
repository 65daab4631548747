#include "support/Forms.h"

#include "support/Error.h"

namespace support {

void FormRequest::RaiseOtherType() const { Raise(kErrTypeMismatch, form_); }

bool FormTable::ShowModal(const FormRequest &request, Owner owner) {
    const auto found = forms_.find(request.Form());
    if (found == forms_.end())
        throw Error(kErrInvalidProcedureCall, QStringLiteral("ShowModal"),
                    QStringLiteral("Unknown form ") + request.Form());
    return found->second(request, owner);
}

} // namespace support

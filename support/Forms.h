// The door to the modal forms, which routines below their folders open too. What a form is handed names it: a
// type with `kForm`, whose values the form reads and writes.
#pragma once

#include "support/Desktop.h"

#include <any>
#include <concepts>
#include <functional>
#include <map>

namespace support {

template <typename Argument>
concept FormArgument = requires {
    { Argument::kForm } -> std::convertible_to<const char *>;
};

// A form to be shown, and what it is handed.
class FormRequest {
public:
    template <FormArgument Argument>
    explicit FormRequest(Argument &argument) : form_(QLatin1String(Argument::kForm)), argument_(&argument) {}

    const QString &Form() const { return form_; }
    // Error 13 "Type mismatch" for another type than the one handed in.
    template <FormArgument Argument>
    Argument &As() const {
        auto *const *argument = std::any_cast<Argument *>(&argument_);
        if (!argument) RaiseOtherType();
        return **argument;
    }

private:
    [[noreturn]] void RaiseOtherType() const;

    QString form_;
    std::any argument_;
};

// Shows the form above `owner` and gives true when its user chose OK.
template <FormArgument Argument>
bool Show(Desktop &desktop, Argument &argument, Owner owner) {
    return desktop.dialogHost.ShowModal(FormRequest(argument), owner);
}

// Whether the program has the form that takes such an argument.
template <FormArgument Argument>
bool HasForm(const Desktop &desktop) {
    return desktop.dialogHost.Knows(QLatin1String(Argument::kForm));
}

// The forms of a program, one row each.
class FormTable : public DialogHost {
public:
    // `show` gives true when the user chose OK. A second row for one form replaces the first.
    template <FormArgument Argument>
    void Add(std::function<bool(Argument &argument, Owner owner)> show) {
        forms_[QLatin1String(Argument::kForm)] = [show = std::move(show)](const FormRequest &request,
                                                                          Owner owner) {
            return show(request.As<Argument>(), owner);
        };
    }
    // Error 5 "Unknown form NAME" for a form that was not added.
    bool ShowModal(const FormRequest &request, Owner owner) override;
    bool Knows(const QString &form) const override { return forms_.contains(form); }

private:
    std::map<QString, std::function<bool(const FormRequest &, Owner)>> forms_;
};

} // namespace support

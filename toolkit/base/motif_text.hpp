/// Texts and arguments as Xt and Motif take them.
#pragma once

#include "toolkit/base/locale_text.hpp"

#include <Xm/Xm.h>

#include <span>
#include <string>
#include <type_traits>
#include <vector>

namespace tesserakit {

/// Xt and Motif name no const in the types of their texts, and write through none of them.
inline String xt_name(const char* text) { return const_cast<String>(text); }
inline String xt_name(const std::string& text) { return const_cast<String>(text.c_str()); }

/// Takes over a text of the locale that Xt or Motif has allocated, as UTF-8; null is empty.
std::string taken(char* text);

/// A compound string of a UTF-8 text; it lives as long as its scope.
class CompoundText {
public:
    explicit CompoundText(const std::string& text)
        : text_(XmStringCreateLocalized(xt_name(to_locale(text)))) {}
    ~CompoundText() { XmStringFree(text_); }
    CompoundText(const CompoundText&) = delete;
    CompoundText& operator=(const CompoundText&) = delete;
    XmString get() const { return text_; }

private:
    XmString text_;
};

/// The plain text of a compound string, as UTF-8.
std::string plain_text(XmString text);

/// Arguments of a widget under construction, added by calls in a row: args(name, value)(name,
/// value). Texts and arrays must live until the arguments are used.
class Arguments {
public:
    template <class Value>
    Arguments& operator()(const char* name, Value value) {
        Arg arg{xt_name(name), 0};
        if constexpr (std::is_pointer_v<Value>)
            arg.value = reinterpret_cast<XtArgVal>(value);
        else
            arg.value = static_cast<XtArgVal>(value);
        args_.push_back(arg);
        return *this;
    }
    Widget create(const char* name, WidgetClass type, Widget parent);
    Arg* data() { return args_.data(); }
    Cardinal count() const { return static_cast<Cardinal>(args_.size()); }

private:
    std::vector<Arg> args_;
};

}  // namespace tesserakit

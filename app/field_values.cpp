#include "app/field_values.hpp"

#include "app/slider_scale.hpp"
#include "common/number_field.hpp"
#include "crystal/position_text.hpp"
#include "toolkit/tesserakit.hpp"

namespace gemwright {

using namespace tesserakit;

std::optional<float> real_in(int field) {
    float value = 0;
    infoerror(1);  // forgets an older one
    wdialoggetreal(field, value);
    if (infoerror(1) != 0) return std::nullopt;
    return value;
}

std::optional<float> position_in(int field) {
    const std::optional<float> value = real_in(field);
    if (!value) return value;
    // A number put in full precision isn't what its text reads as.
    const std::string text = wdialoggettypedtext(field);
    return number_field::to_float(text) == value ? position_text::component(text, *value) : value;
}

std::optional<Vector3f> vector_in(const std::array<int, 3>& fields) {
    Vector3f vector;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::optional<float> value = real_in(fields[i]);
        if (!value) return std::nullopt;
        vector[i] = *value;
    }
    return vector;
}

std::string text_in(int field) {
    std::string text;
    wdialoggetstring(field, text);
    return text;
}

bool ticked(int field) {
    int state = 0;
    wdialoggetcheckbox(field, state);
    return state != 0;
}

int ordinal_in(int radio) {
    int ordinal = 0;
    wdialoggetradiobutton(radio, ordinal);
    return ordinal;
}

int slider_in(int field) {
    int value = 0;
    wdialoggettrackbar(field, value);
    return value;
}

void get_colour(std::span<const int> sliders, std::span<float> colour) {
    for (std::size_t i = 0; i < sliders.size(); ++i)
        colour[i] = from_hundredths(slider_in(sliders[i]));
}

void put_colour(std::span<const int> sliders, std::span<const float> colour) {
    for (std::size_t i = 0; i < sliders.size(); ++i)
        wdialogputtrackbar(sliders[i], to_hundredths(colour[i]));
}

void put_reals(std::span<const int> fields, std::span<const float> values) {
    for (std::size_t i = 0; i < fields.size(); ++i) wdialogputreal(fields[i], values[i]);
}

void put_states(std::span<const int> fields, int state) {
    for (const int field : fields) wdialogfieldstate(field, state);
}

Selected selected_in(int list) {
    Selected result;
    wdialoggetmenu1(list, result.index);
    wdialoggetmenu2(list, result.text);
    return result;
}

}  // namespace gemwright

#include "toolkit/base/motif_text.hpp"
#include "toolkit/base/picture_scale.hpp"
#include "toolkit/base/start.hpp"
#include "toolkit/dialogs/dialogs.hpp"
#include "toolkit/widgets/border.hpp"
#include "toolkit/widgets/combo.hpp"
#include "toolkit/widgets/diag.hpp"
#include "toolkit/widgets/grid.hpp"
#include "toolkit/widgets/placement.hpp"
#include "toolkit/widgets/progress.hpp"
#include "toolkit/widgets/spin.hpp"
#include "toolkit/widgets/tab.hpp"
#include "toolkit/widgets/tess.hpp"
#include "toolkit/windows/windows.hpp"

#include <Xm/AtomMgr.h>
#include <Xm/ComboBox.h>
#include <Xm/DialogS.h>
#include <Xm/Frame.h>
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/MwmUtil.h>
#include <Xm/Protocols.h>
#include <Xm/PushB.h>
#include <Xm/Scale.h>
#include <Xm/ScrolledW.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>
#include <Xm/ToggleB.h>

#include <algorithm>

namespace tesserakit {
namespace {

Arguments placed(const Box& box) {
    Arguments args;
    args(XmNx, box.x)(XmNy, box.y)(XmNwidth, std::max(1, box.width))(XmNheight,
                                                                     std::max(1, box.height));
    return args;
}

/// As above, with the font of the dialogs.
Arguments placed_text(const Box& box) {
    Arguments args = placed(box);
    args(XmNrenderTable, wFonts.dialog.table);
    return args;
}

int text_margin(int height, int frame) {
    return std::max(0, (height - wFonts.dialog.height()) / 2 - frame);
}

FieldRecord& field_of(XtPointer client) { return *static_cast<FieldRecord*>(client); }

void changed(Widget, XtPointer client, XtPointer) { post_changed(field_of(client)); }

// Labels, pictures, groups

/// Breaks at blanks where a line would be wider than `width`, as far as `lines` allow.
std::string wrapped(const std::string& text, int width, int lines) {
    std::string result;
    std::string line;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find(' ', start), text.size());
        const std::string word = text.substr(start, end - start);
        const std::string longer = line.empty() ? word : line + ' ' + word;
        if (lines > 1 && !line.empty() && text_width(wFonts.dialog, longer) > width) {
            result += line + '\n';
            line = word;
            --lines;
        } else {
            line = longer;
        }
        start = end + 1;
    }
    return result + line;
}

/// Lines of text that a label has room for.
int label_lines(const FieldRecord& field) {
    return std::max(1, field.box.height / std::max(1, wFonts.dialog.height()));
}

bool is_ascii(const std::string& text) {
    return std::ranges::none_of(text, [](char c) { return (c & 0x80) != 0; });
}

bool is_scalable(const TextFont& font) {
    XmRendition rendition = XmRenderTableGetRendition(font.table, xt_name(XmFONTLIST_DEFAULT_TAG));
    if (!rendition) return false;
    XmFontType type = XmFONT_IS_FONT;
    Arg arg{xt_name(XmNfontType), reinterpret_cast<XtArgVal>(&type)};
    XmRenditionRetrieve(rendition, &arg, 1);
    XmRenditionFree(rendition);
    return type == XmFONT_IS_XFT;
}

/// The Greek letters of the angles, where the server's own fonts have none.
std::string in_latin_letters(std::string text) {
    constexpr std::array<std::array<const char*, 2>, 3> letters{
        {{"\u03b1", "al"}, {"\u03b2", "be"}, {"\u03b3", "ga"}}};
    for (const auto& [greek, latin] : letters)
        if (const std::size_t at = text.find(greek); at != std::string::npos)
            text.replace(at, std::string_view(greek).size(), latin);
    return text;
}

int label_alignment(int style) {
    switch (style & 3) {
        case 1:
            return XmALIGNMENT_CENTER;
        case 2:
            return XmALIGNMENT_END;
        default:
            return XmALIGNMENT_BEGINNING;
    }
}

constexpr int extended_modal_frame = 0x1;
constexpr int extended_client_edge = 0x200;
constexpr int extended_static_edge = 0x20000;

/// The frame that the style words ask for.
Widget create_border(FieldRecord& field, bool with_line) {
    Arguments args = placed(field.box);
    args(borderNborder, with_line && field.has_style(field_style::border));
    args(borderNclient, (field.extended_style & extended_client_edge) != 0);
    args(borderNstatic, (field.extended_style & extended_static_edge) != 0);
    args(borderNmodal, (field.extended_style & extended_modal_frame) != 0);
    return args.create("border", borderWidgetClass, field.dialog->widget);
}

void create_label(FieldRecord& field) {
    field.position_widget = create_border(field, true);
    const TextFont& font = is_ascii(field.text) ? wFonts.dialog : wFonts.symbol;
    if (!is_ascii(field.text) && !is_scalable(font)) field.text = in_latin_letters(field.text);
    const CompoundText text(wrapped(field.text, field.box.width, label_lines(field)));
    Arguments args;
    args(XmNrenderTable, font.table)(XmNlabelString, text.get())(XmNmarginWidth, 0);
    args(XmNmarginHeight, 0)(XmNrecomputeSize, False)(XmNalignment, label_alignment(field.style));
    field.widget = args.create("label", xmLabelWidgetClass, field.position_widget);
    XtManageChild(field.widget);
}

void load_image(FieldRecord& field) {
    field.image = yyResourceLoadImage(field.identifier, image_kind::bitmap, true);
    if (field.image.status != 0)
        field.image = yyResourceLoadImage(field.identifier, image_kind::icon, true);
    if (field.image.status != 0)
        field.image.pixmap = 0;
    else
        shrink_to_fit(field.image, field.box.width, field.box.height);
}

void create_picture(FieldRecord& field) {
    load_image(field);
    Arguments args = placed(field.box);
    args(tessNpixmap, field.image.pixmap)(tessNpixmapWidth, field.image.width);
    args(tessNpixmapHeight, field.image.height);
    field.widget = args.create("picture", tessWidgetClass, field.dialog->widget);
    field.position_widget = field.widget;
}

void create_group(FieldRecord& field) {
    Arguments args = placed(field.box);
    args(XmNshadowThickness, 2)(XmNshadowType, XmSHADOW_ETCHED_IN);
    field.position_widget = args.create("group", xmFrameWidgetClass, field.dialog->widget);
    field.widget = field.position_widget;
    if (field.text.empty()) return;
    const CompoundText text(field.text);
    Arguments title;
    title(XmNrenderTable, wFonts.dialog.table)(XmNlabelString, text.get());
    title(XmNframeChildType, XmFRAME_TITLE_CHILD)(XmNmarginHeight, 0)(XmNmarginWidth, 2);
    title(XmNchildVerticalAlignment, XmALIGNMENT_CENTER)(XmNchildHorizontalSpacing, 4);
    field.widget = title.create("title", xmLabelWidgetClass, field.position_widget);
    XtManageChild(field.widget);
}

// Texts and numbers

void typed(Widget, XtPointer client, XtPointer) {
    FieldRecord& field = field_of(client);
    if (!field.numeric || field.dialog->posting.suppression > 0) return;
    field.numeric->text_changed = true;
    field.numeric->user_typed = true;
}

/// Keeps what is typed, and lets asterisks through.
void hide_password(Widget, XtPointer client, XtPointer call) {
    FieldRecord& field = field_of(client);
    auto& change = *static_cast<XmTextVerifyCallbackStruct*>(call);
    const auto size = static_cast<long>(field.password.size());
    const auto start = static_cast<std::size_t>(std::clamp(change.startPos, 0L, size));
    const auto end = static_cast<std::size_t>(std::clamp(change.endPos, 0L, size));
    const auto length = static_cast<std::size_t>(std::max(0, change.text->length));
    field.password.replace(start, end - start, change.text->ptr ? change.text->ptr : "", length);
    if (change.text->ptr) std::fill_n(change.text->ptr, length, '*');
}

Arguments text_arguments(const FieldRecord& field) {
    constexpr int frame = 2;
    Arguments args;
    args(XmNrenderTable, wFonts.dialog.table)(XmNshadowThickness, frame);
    args(XmNhighlightThickness, 0)(XmNmarginWidth, 3)(XmNcursorPositionVisible, False);
    args(XmNmarginHeight, text_margin(field.box.height, frame));
    if (field.has_style(field_style::read_only)) {
        args(XmNeditable, False);
        args(XmNbackground, wSchemeCol.background);
    } else {
        args(XmNbackground, wSchemeCol.field);
    }
    int length = 0;
    yyrcfieldlength(field.dialog->identifier, field.identifier, length);
    if (length > 0) args(XmNmaxLength, length);
    return args;
}

void create_multi_line(FieldRecord& field) {
    Arguments frame = placed(field.box);
    frame(XmNscrollingPolicy, XmAPPLICATION_DEFINED)(XmNscrollBarDisplayPolicy, XmSTATIC);
    frame(XmNvisualPolicy, XmVARIABLE);
    field.position_widget =
        frame.create("scrolled", xmScrolledWindowWidgetClass, field.dialog->widget);
    Arguments args = text_arguments(field);
    args(XmNeditMode, XmMULTI_LINE_EDIT);
    args(XmNscrollHorizontal, field.has_style(field_style::horizontal_scroll));
    args(XmNwordWrap, !field.has_style(field_style::horizontal_scroll));
    field.widget = args.create("text", xmTextWidgetClass, field.position_widget);
    XtManageChild(field.widget);
}

void create_text(FieldRecord& field) {
    if (field.type == FieldType::String && field.has_style(field_style::multi_line)) {
        create_multi_line(field);
    } else {
        Arguments args = text_arguments(field);
        args(XmNx, field.box.x)(XmNy, field.box.y);
        args(XmNwidth, field.box.width)(XmNheight, field.box.height);
        field.widget = args.create("text", xmTextFieldWidgetClass, field.dialog->widget);
        field.position_widget = field.widget;
    }
    field.focus_widget = field.widget;
    if (field.type == FieldType::String && field.has_style(field_style::password))
        XtAddCallback(field.widget, XmNmodifyVerifyCallback, hide_password, &field);
    XtAddCallback(field.widget, XmNvalueChangedCallback, typed, &field);
    const Suppression quiet(*field.dialog);
    set_widget_text(field, field.text);
}

void spun(Widget, XtPointer client, XtPointer call) {
    FieldRecord& field = field_of(client);
    const double value = static_cast<SpinStep*>(call)->value;
    {
        const Suppression quiet(*field.dialog);
        const auto text = put_number(*field.numeric, value, {});
        if (!text) return;
        set_widget_text(field, *text);
    }
    bInvalidField = false;
    post_changed(field);  // yyReportSpinner
}

void create_spin(FieldRecord& field) {
    constexpr double real_step = 0.1;
    const NumericField& numeric = *field.numeric;
    const bool whole = numeric.type == NumericType::Integer;
    const WidgetClass type = whole                               ? integerspinWidgetClass
                             : numeric.type == NumericType::Real ? realspinWidgetClass
                                                                 : doublespinWidgetClass;
    field.position_widget = placed(field.box).create("spin", type, field.dialog->widget);
    const double step = whole ? 1.0 : real_step;
    spin_configure(field.position_widget, {step, step, numeric.low, numeric.high});
    field.widget = spin_text(field.position_widget);
    field.focus_widget = field.widget;
    Arguments args = text_arguments(field);
    XtSetValues(field.widget, args.data(), args.count());
    XtAddCallback(field.position_widget, spinNstepCallback, spun, &field);
    XtAddCallback(field.widget, XmNvalueChangedCallback, typed, &field);
    const Suppression quiet(*field.dialog);
    set_widget_text(field, field.text);
}

void create_number(FieldRecord& field) {
    if (field.third_style & field_style::third_spinner)
        create_spin(field);
    else
        create_text(field);
}

// Buttons

bool shows_image(FieldRecord& field) {
    if (!field.has_style(field_style::picture)) return false;
    load_image(field);
    return field.image.pixmap != 0;
}

/// What push and toggle buttons have in common: their text or picture, and their place.
Widget create_button_widget(FieldRecord& field, WidgetClass type, Arguments extra) {
    Arguments args = placed_text(field.box);
    const CompoundText text(field.text);
    args(XmNlabelString, text.get())(XmNmarginHeight, 0)(XmNmarginWidth, 2);
    args(XmNrecomputeSize, False)(XmNhighlightThickness, 1)(XmNtraversalOn, True);
    if (shows_image(field)) args(XmNlabelType, XmPIXMAP)(XmNlabelPixmap, field.image.pixmap);
    for (Cardinal i = 0; i < extra.count(); ++i) args(extra.data()[i].name, extra.data()[i].value);
    field.widget = args.create("button", type, field.dialog->widget);
    field.position_widget = field.widget;
    field.focus_widget = field.widget;
    return field.widget;
}

void pressed(Widget, XtPointer client, XtPointer) {
    FieldRecord& field = field_of(client);
    const DialogRecord& dialog = *field.dialog;
    const FieldRecord* before =
        dialog.current_field == &field ? dialog.previous_field : dialog.current_field;
    yyDGFieldButtonMessage(*field.dialog, field.identifier,
                           before ? before->identifier : field.identifier);
}

void create_push_button(FieldRecord& field) {
    Arguments extra;
    extra(XmNshadowThickness, 2);
    const Widget button = create_button_widget(field, xmPushButtonWidgetClass, extra);
    XtAddCallback(button, XmNactivateCallback, pressed, &field);
    if (field.has_style(field_style::default_button) && !field.dialog->default_button)
        field.dialog->default_button = &field;
}

Arguments toggle_arguments(const FieldRecord& field, bool radio) {
    Arguments extra;
    if (field.has_style(field_style::picture)) {
        extra(XmNindicatorOn, XmINDICATOR_NONE)(XmNshadowThickness, 2)(XmNfillOnSelect, True);
        extra(XmNselectColor, wSchemeCol.select);
    } else {
        extra(XmNindicatorType, radio ? XmONE_OF_MANY_ROUND : XmN_OF_MANY);
        extra(XmNindicatorOn, radio ? XmINDICATOR_FILL : XmINDICATOR_CHECK_BOX);
        extra(XmNindicatorSize, wFonts.dialog.measures.ascent + 2)(XmNshadowThickness, 0);
        extra(XmNdetailShadowThickness, 1);
        extra(XmNselectColor, radio ? wSchemeCol.highlight : wSchemeCol.field);
        extra(XmNunselectColor, wSchemeCol.field);
        extra(XmNalignment, XmALIGNMENT_BEGINNING)(XmNspacing, 4);
    }
    extra(XmNset, field.initially_set ? XmSET : XmUNSET);
    return extra;
}

void create_check(FieldRecord& field) {
    create_button_widget(field, xmToggleButtonWidgetClass, toggle_arguments(field, false));
    XtAddCallback(field.widget, XmNvalueChangedCallback, changed, &field);
}

/// A click on the button that is set leaves it set.
void radio_pressed(Widget, XtPointer client, XtPointer call) {
    FieldRecord& field = field_of(client);
    const bool newly_set = static_cast<XmToggleButtonCallbackStruct*>(call)->set == XmSET;
    set_radio(field);
    if (newly_set) post_changed(field);
}

void create_radio(FieldRecord& field) {
    create_button_widget(field, xmToggleButtonWidgetClass, toggle_arguments(field, true));
    XtAddCallback(field.widget, XmNvalueChangedCallback, radio_pressed, &field);
}

// Lists

struct Menu {
    int selected = 0;
    std::vector<std::string> options;
};

Menu load_menu(const FieldRecord& field) {
    Menu menu;
    int count = 0;
    int text_size = 0;
    yyrcfieldmenucheck(field.dialog->identifier, field.identifier, count, text_size);
    if (count <= 0) return menu;
    std::vector<int> offsets(static_cast<std::size_t>(count) + 1);
    std::string text(static_cast<std::size_t>(text_size), ' ');
    yyrcfieldmenuload(field.dialog->identifier, field.identifier, menu.selected, offsets, text);
    for (std::size_t i = 0; i + 1 < offsets.size(); ++i) {
        const auto start = static_cast<std::size_t>(offsets[i]);
        menu.options.push_back(
            text.substr(start, static_cast<std::size_t>(offsets[i + 1]) - start));
    }
    return menu;
}

void fill_menu(FieldRecord& field) {
    const Menu menu = load_menu(field);
    const Suppression quiet(*field.dialog);
    set_options(field, menu.options);
    if (menu.selected > 0 && menu.selected <= option_count(field))
        select_option(field, menu.selected);
}

void create_combo(FieldRecord& field) {
    Arguments args = placed_text(field.box);
    const bool fixed = (field.style & field_style::drop_down_list) == field_style::drop_down_list;
    args(XmNcomboBoxType, fixed ? XmDROP_DOWN_LIST : XmDROP_DOWN_COMBO_BOX);
    constexpr int arrow = 16;
    args(XmNmarginHeight, 0)(XmNmarginWidth, 0)(XmNshadowThickness, 1)(XmNhighlightThickness, 1);
    args(XmNarrowSize, arrow)(XmNarrowSpacing, 0);
    field.position_widget = args.create("combo", comboWidgetClass, field.dialog->widget);
    field.widget = field.position_widget;
    field.focus_widget = combo_text(field.widget);
    constexpr int frames = 3;  // of the combo and of its text
    XtVaSetValues(combo_text(field.widget), XmNrenderTable, wFonts.dialog.table, XmNmarginHeight,
                  text_margin(closed_combo_height(field), frames), XmNmarginWidth, 2,
                  XmNcursorPositionVisible, False, nullptr);
    XtVaSetValues(combo_list(field.widget), XmNrenderTable, wFonts.dialog.table, nullptr);
    fill_menu(field);
    XtAddCallback(field.widget, XmNselectionCallback, changed, &field);
}

void create_list(FieldRecord& field) {
    Arguments frame = placed(field.box);
    frame(XmNscrollingPolicy, XmAPPLICATION_DEFINED)(XmNvisualPolicy, XmVARIABLE);
    frame(XmNscrollBarDisplayPolicy, XmAS_NEEDED)(XmNspacing, 1);
    field.position_widget =
        frame.create("scrolled", xmScrolledWindowWidgetClass, field.dialog->widget);
    Arguments args;
    args(XmNrenderTable, wFonts.dialog.table)(XmNselectionPolicy, XmBROWSE_SELECT);
    args(XmNlistSizePolicy, XmCONSTANT)(XmNscrollBarDisplayPolicy, XmAS_NEEDED);
    args(XmNhighlightThickness, 1)(XmNbackground, wSchemeCol.field);
    field.widget = args.create("list", xmListWidgetClass, field.position_widget);
    field.focus_widget = field.widget;
    XtManageChild(field.widget);
    if (field.type == FieldType::List) fill_menu(field);
    XtAddCallback(field.widget, XmNbrowseSelectionCallback, changed, &field);
}

// Tabs, progress bars, grids, trackbars

/// The user's choice of a page is refused while a number is bad.
void tab_chosen(Widget, XtPointer client, XtPointer call) {
    FieldRecord& field = field_of(client);
    auto& choice = *static_cast<TabChoice*>(call);
    choice.allow = commit_typing();
    if (!choice.allow) return;
    bring_to_front(field, choice.tab);
    yyDGSendTesserakitMessage(&field.dialog->posting,
                              {.type = TabChanged,
                               .value1 = field.identifier,
                               .value2 = field.pages[static_cast<std::size_t>(choice.tab)].dialog,
                               .value3 = -1,
                               .value4 = -1,
                               .win = field.dialog->identifier});
}

void create_tab(FieldRecord& field) {
    field.widget = placed(field.box).create("tab", tabWidgetClass, field.dialog->widget);
    field.position_widget = field.widget;
    field.focus_widget = field.widget;
    std::vector<std::string> labels;
    for (const TabPage& page : field.pages) labels.push_back(page.label);
    tab_set_labels(field.widget, wFonts.dialog, std::move(labels));
    for (TabPage& page : field.pages) page.slot = load_page(field, page.dialog);
    tab_select(field.widget, field.front_page);
    XtAddCallback(field.widget, tabNselectCallback, tab_chosen, &field);
}

void create_progress(FieldRecord& field) {
    int step = 0;
    int low = 0;
    int high = 0;
    yyrcfieldprogressbar(field.dialog->identifier, field.identifier, low, high, step);
    if (low < high) {
        field.progress_low = low;
        field.progress_high = high;
    }
    Arguments args = placed(field.box);
    args(progressNminimum, field.progress_low)(progressNmaximum, field.progress_high);
    args(progressNvalue, field.progress_low)(XmNforeground, wSchemeCol.highlight);
    field.widget = args.create("progress", progressWidgetClass, field.dialog->widget);
    field.position_widget = field.widget;
}

int packed_cell(int column, int row) { return ((row + 1) << 18) | (column + 1); }

void grid_changed(Widget, XtPointer client, XtPointer call) {
    const FieldRecord& field = field_of(client);
    const auto& change = *static_cast<GridChange*>(call);
    yyDGSendTesserakitMessage(&field.dialog->posting,
                              {.type = FieldChanged,
                               .value1 = field.identifier,
                               .value2 = field.identifier,
                               .value3 = change.edited ? -1 : 0,
                               .value4 = -1,
                               .x = packed_cell(change.from_column, change.from_row),
                               .y = packed_cell(change.to_column, change.to_row),
                               .win = field.dialog->identifier});
}

struct GridSetup {
    int capacity = 0;
    int template_dialog = 0;
    int label_width = 0;
    std::vector<int> widths;  ///< of the columns, in dialog units
};

GridSetup load_grid(const FieldRecord& field) {
    GridSetup setup;
    int count = 0;
    yyrcfieldgridcheck(field.dialog->identifier, field.identifier, count);
    if (count < 1) count = 0;
    std::vector<int> column_fields(static_cast<std::size_t>(count));
    setup.widths.resize(static_cast<std::size_t>(count));
    yyrcfieldgridload(field.dialog->identifier, field.identifier, setup.capacity,
                      setup.template_dialog, setup.label_width, column_fields, setup.widths);
    if (setup.widths.empty()) setup.widths.push_back(0);
    return setup;
}

void create_grid(FieldRecord& field) {
    const GridSetup setup = load_grid(field);
    field.capacity = std::max(setup.capacity, 0);
    field.position_widget = create_border(field, false);
    Arguments frame;
    frame(XmNscrollingPolicy, XmAUTOMATIC)(XmNscrollBarDisplayPolicy, XmAS_NEEDED);
    frame(XmNspacing, 1);
    const Widget scrolled =
        frame.create("scrolled", xmScrolledWindowWidgetClass, field.position_widget);
    const int label_width = pixels_across(setup.label_width);
    Arguments args;
    args(gridNrowWidth, label_width)(gridNtemplateIdent, setup.template_dialog);
    args(XmNhighlightThickness, 0)(XmNwidth, 1)(XmNheight, 1);
    field.widget = args.create("grid", gridWidgetClass, scrolled);
    field.focus_widget = field.widget;
    // A column without a width of its own takes its share of what the scroll bar leaves.
    constexpr int scroll_bar = 24;
    const int share =
        (field.box.width - label_width - scroll_bar) / static_cast<int>(setup.widths.size());
    std::vector<int> widths;
    for (const int width : setup.widths)
        widths.push_back(width > 0 ? pixels_across(width) : std::max(1, share));
    grid_set_columns(field.widget, wFonts.dialog, std::move(widths));
    XtManageChild(field.widget);
    XtManageChild(scrolled);
    XtAddCallback(field.widget, gridNchangeCallback, grid_changed, &field);
}

void create_trackbar(FieldRecord& field) {
    std::array<int, 8> values{};
    yyrcfieldtrackbar(field.dialog->identifier, field.identifier, values);
    const int low = values[1];
    const int high = values[1] < values[2] ? values[2] : values[1] + 100;
    const bool vertical = field.has_style(field_style::vertical_track);
    Arguments args = placed(field.box);
    args(XmNorientation, vertical ? XmVERTICAL : XmHORIZONTAL);
    args(XmNprocessingDirection, vertical ? XmMAX_ON_TOP : XmMAX_ON_RIGHT);
    args(XmNscaleWidth, field.box.width)(XmNscaleHeight, field.box.height);
    args(XmNminimum, low)(XmNmaximum, high)(XmNvalue, std::clamp(values[0], low, high));
    if (values[3] > 0) args(XmNscaleMultiple, std::min(values[3], high - low));
    args(XmNshowValue, False)(XmNhighlightThickness, 1);
    field.widget = args.create("trackbar", xmScaleWidgetClass, field.dialog->widget);
    field.position_widget = field.widget;
    field.focus_widget = XtNameToWidget(field.widget, "Scrollbar");
    if (!field.focus_widget) field.focus_widget = field.widget;
    XtAddCallback(field.widget, XmNvalueChangedCallback, changed, &field);
    XtAddCallback(field.widget, XmNdragCallback, changed, &field);
}

/// Where the free space to the right of a field ends: at its neighbour, or inside the box or
/// dialog around it.
int free_until(const FieldRecord& field) {
    constexpr int frame = 3;
    const Box& own = field.box;
    int end = field.dialog->width - frame;
    for (const FieldRecord& other : field.dialog->fields) {
        const Box& box = other.box;
        if (&other == &field || box.y >= own.y + own.height || box.y + box.height <= own.y)
            continue;
        if (box.x >= own.x + own.width)
            end = std::min(end, box.x);
        else if (other.type == FieldType::Group && box.x <= own.x)
            end = std::min(end, box.x + box.width - frame);
    }
    return end;
}

/// A text that is too wide for its field, in whatever font, takes free space beside it.
void widen_for_text(FieldRecord& field) {
    constexpr int indicator_room = 10;
    constexpr FieldTypes wide{FieldType::Label, FieldType::Check, FieldType::Radio};
    if (!wide.has(field.type) || field.text.empty() || label_lines(field) > 1) return;
    int wanted = text_width(wFonts.dialog, field.text) + 1;
    if (field.type != FieldType::Label) wanted += wFonts.dialog.measures.ascent + indicator_room;
    const int room = std::max(field.box.width, free_until(field) - field.box.x);
    field.box.width = std::clamp(wanted, field.box.width, room);
    field.right_margin = field.dialog->width - field.box.x - field.box.width;
    field.loaded_box = field.box;
}

void create_field_widget(FieldRecord& field) {
    switch (field.type) {
        case FieldType::Label:
            return create_label(field);
        case FieldType::Picture:
            return create_picture(field);
        case FieldType::Group:
            return create_group(field);
        case FieldType::String:
            return create_text(field);
        case FieldType::Integer:
        case FieldType::Real:
        case FieldType::Double:
            return create_number(field);
        case FieldType::Button:
            return create_push_button(field);
        case FieldType::Check:
            return create_check(field);
        case FieldType::Radio:
            return create_radio(field);
        case FieldType::Combo:
            return create_combo(field);
        case FieldType::List:
        case FieldType::TreeView:
            return create_list(field);
        case FieldType::Tab:
            return create_tab(field);
        case FieldType::Progress:
            return create_progress(field);
        case FieldType::Grid:
            return create_grid(field);
        case FieldType::Trackbar:
            return create_trackbar(field);
    }
}

void set_colours(const FieldRecord& field) {
    constexpr int standard = 256;
    std::array<int, 6> c{};
    yyrcfieldcolour(field.dialog->identifier, field.identifier, c);
    const auto allocate = [&](std::size_t first, const char* resource) {
        if (c[first] >= standard) return;
        XColor colour{};
        colour.red = static_cast<unsigned short>(c[first] * 257);
        colour.green = static_cast<unsigned short>(c[first + 1] * 257);
        colour.blue = static_cast<unsigned short>(c[first + 2] * 257);
        if (XAllocColor(yydisplay.display, yydisplay.colormap, &colour))
            XtVaSetValues(field.widget, resource, colour.pixel, nullptr);
    };
    allocate(0, XmNforeground);
    allocate(3, XmNbackground);
}

void create_field(FieldRecord& field) {
    widen_for_text(field);
    create_field_widget(field);
    if (!field.position_widget) return;
    set_colours(field);
    watch_field(field);
    if (field.has_style(field_style::visible))
        XtManageChild(field.position_widget);
    else
        field.state = FieldHidden;
    if (field.has_style(field_style::disabled)) apply_state(field, FieldDisabled);
    if (field.has_style(field_style::read_only)) field.state = FieldReadOnly;
}

/// A group without a set button starts with its first one set.
void set_first_radios(DialogRecord& dialog) {
    for (FieldRecord& field : dialog.fields) {
        if (field.type != FieldType::Radio) continue;
        const std::vector<FieldRecord*> group = radio_group(field);
        if (std::ranges::none_of(group, [](auto* radio) { return toggle_is_set(*radio); }))
            set_toggle(*group.front(), true);
    }
}

// Dialogs

void resized(Widget, XtPointer client, XtPointer) {
    lay_out_fields(*static_cast<DialogRecord*>(client));
}

void widgets_gone(Widget, XtPointer client, XtPointer) {
    DialogRecord& dialog = *static_cast<DialogRecord*>(client);
    dialog.widget = nullptr;
    dialog.shell = nullptr;
    for (FieldRecord& field : dialog.fields)
        field.widget = field.position_widget = field.focus_widget = nullptr;
}

void yyDGDialogWMCloseCB(Widget, XtPointer client, XtPointer) {
    cancel_dialog(*static_cast<DialogRecord*>(client));
}

long decorations(const DialogRecord& dialog) {
    using namespace dialog_style;
    if ((dialog.style & caption) != caption) return 0;
    long parts = MWM_DECOR_BORDER | MWM_DECOR_TITLE;
    if (dialog.style & system_menu) parts |= MWM_DECOR_MENU;
    if (dialog.style & minimise_box) parts |= MWM_DECOR_MINIMIZE;
    if (dialog.resize_field != 0) parts |= MWM_DECOR_RESIZEH | MWM_DECOR_MAXIMIZE;
    return parts;
}

Widget create_shell(DialogRecord& dialog) {
    Arguments args;
    args(XmNdeleteResponse, XmDO_NOTHING)(XmNallowShellResize, False);
    args(XmNminWidth, dialog.width)(XmNminHeight, dialog.height);
    long functions = MWM_FUNC_MOVE | MWM_FUNC_CLOSE;
    if (dialog.resize_field != 0)
        functions |= MWM_FUNC_RESIZE | MWM_FUNC_MAXIMIZE;
    else
        args(XmNmaxWidth, dialog.width)(XmNmaxHeight, dialog.height);
    args(XmNmwmFunctions, functions)(XmNmwmDecorations, decorations(dialog));
    const std::string title = dialog.title.empty() ? " " : dialog.title;
    args(XmNtitle, title.c_str());
    const Widget shell =
        XmCreateDialogShell(yydialogparent(), xt_name("TessShell"), args.data(), args.count());
    XmAddWMProtocolCallback(shell, yydisplay.wm_delete_window, yyDGDialogWMCloseCB, &dialog);
    return shell;
}

}  // namespace

void create_widgets(DialogRecord& dialog, Widget parent) {
    if (!parent) {
        dialog.shell = create_shell(dialog);
        parent = dialog.shell;
    }
    Arguments args;
    args(XmNwidth, dialog.width)(XmNheight, dialog.height)(XmNshadowThickness, 0);
    args(XmNnavigationType, XmTAB_GROUP);
    dialog.widget = args.create("TessDialog", diagWidgetClass, parent);
    for (FieldRecord& field : dialog.fields) create_field(field);
    set_first_radios(dialog);
    lay_out_fields(dialog);
    watch_dialog(dialog);
    if (dialog.default_button) yyDGDefaultButtonAddRemove(*dialog.default_button, true);
    XtAddCallback(dialog.widget, diagNresizeCallback, resized, &dialog);
    XtAddCallback(dialog.widget, XmNdestroyCallback, widgets_gone, &dialog);
}

void destroy_widgets(DialogRecord& dialog) {
    if (!dialog.widget) return;
    XtRemoveCallback(dialog.widget, XmNdestroyCallback, widgets_gone, &dialog);
    XtDestroyWidget(dialog.shell ? dialog.shell : dialog.widget);
}

void restack(DialogRecord& dialog) {
    std::vector<FieldRecord*> behind;
    for (FieldRecord& field : dialog.fields)
        if ((field.type == FieldType::Group || field.type == FieldType::Tab) &&
            field.position_widget && XtIsRealized(field.position_widget))
            behind.push_back(&field);
    // Each is lowered below all others, so the largest comes last.
    const auto area = [](const FieldRecord* field) { return field->box.width * field->box.height; };
    std::ranges::sort(behind, {}, area);
    for (FieldRecord* field : behind)
        XLowerWindow(display_of(field->position_widget), window_of(field->position_widget));
}

}  // namespace tesserakit

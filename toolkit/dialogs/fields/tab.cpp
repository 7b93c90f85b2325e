#include "toolkit/dialogs/fields/tab.hpp"

#include "toolkit/base/errors.hpp"
#include "toolkit/base/fonts.hpp"
#include "toolkit/dialogs/fields/field_kind.hpp"
#include "toolkit/dialogs/fields/widget_parts.hpp"
#include "toolkit/dialogs/focus.hpp"
#include "toolkit/dialogs/layout.hpp"
#include "toolkit/dialogs/post.hpp"
#include "toolkit/widgets/placement.hpp"
#include "toolkit/widgets/tab.hpp"

#include <Xm/Xm.h>

#include <algorithm>

namespace tesserakit {
namespace {

void load_pages(FieldRecord& field) {
    const int dialog = field.dialog->identifier;
    int count = 0;
    int text_size = 0;
    yyrcfieldtabcheck(dialog, field.identifier, count, text_size);
    if (count < 1) return;
    int selected = 0;
    std::vector<int> dialogs(static_cast<std::size_t>(count));
    std::vector<int> offsets(static_cast<std::size_t>(count) + 1);
    std::string text(static_cast<std::size_t>(text_size), ' ');
    yyrcfieldtabload(dialog, field.identifier, selected, dialogs, offsets, text);
    for (std::size_t i = 0; i < dialogs.size(); ++i) {
        const auto start = static_cast<std::size_t>(offsets[i]);
        const auto end = static_cast<std::size_t>(offsets[i + 1]);
        field.pages.push_back({dialogs[i], text.substr(start, end - start), -1});
        if (dialogs[i] == selected) field.front_page = static_cast<int>(i);
    }
}

/// The user's choice of a page is refused while a number is bad.
void tab_chosen(Widget, XtPointer client, XtPointer call) {
    FieldRecord& field = field_of(client);
    auto& choice = *static_cast<TabChoice*>(call);
    choice.allow = commit_typing();
    if (!choice.allow) return;
    bring_to_front(field, choice.tab);
    const int page = field.pages[static_cast<std::size_t>(choice.tab)].dialog;
    post(*field.dialog, dialog_mail(TabChanged, *field.dialog, field.identifier, page));
}

}  // namespace

void place_pages(FieldRecord& tab) {
    if (!tab.widget || tab.pages.empty()) return;
    Box inside = tab_page_box(tab.widget);
    inside.x += tab.box.x;
    inside.y += tab.box.y;
    for (std::size_t i = 0; i < tab.pages.size(); ++i) {
        const int slot = tab.pages[i].slot;
        if (slot < 0) continue;
        DialogRecord& page = dialog_slot(slot);
        place(page.widget, inside.x, inside.y, inside.width, inside.height);
        const bool front = static_cast<int>(i) == tab.front_page && tab.state != FieldHidden;
        if (front)
            XtManageChild(page.widget);
        else
            XtUnmanageChild(page.widget);
        page.show_mode = front && outermost(page).shown() ? DialogModeless : -1;
    }
}

void bring_to_front(FieldRecord& tab, int page) {
    tab.front_page = page;
    tab_select(tab.widget, page);
    place_pages(tab);
    const int slot = tab.pages[static_cast<std::size_t>(page)].slot;
    if (slot < 0) return;
    DialogRecord& front = dialog_slot(slot);
    if (!XtIsRealized(front.widget)) return;
    XRaiseWindow(display_of(front.widget), window_of(front.widget));
    restack(front);
}

void wdialogputtab(int identifier, int dialog) {
    constexpr const char* routine = "WDialogSetTab";
    FieldRecord* field = current_field(identifier, FieldType::Tab, routine);
    if (!field) return;
    const auto page = std::ranges::find(field->pages, dialog, &TabPage::dialog);
    if (page == field->pages.end()) return yyerror(InvalidTab, routine, identifier, dialog);
    const Suppression quiet(*field->dialog);
    bring_to_front(*field, static_cast<int>(page - field->pages.begin()));
}

void wdialoggettab(int identifier, int& dialog) {
    const FieldRecord* field = current_field(identifier, FieldType::Tab, "WDialogGetTab");
    if (!field) return;
    dialog =
        field->pages.empty() ? 0 : field->pages[static_cast<std::size_t>(field->front_page)].dialog;
}

namespace {

void create_tab(FieldRecord& field) {
    field.widget = placed(field.box).create("tab", tabWidgetClass, field.dialog->widget);
    field.position_widget = field.widget;
    field.focus_widget = field.widget;
    std::vector<std::string> labels;
    for (const TabPage& page : field.pages) labels.push_back(page.label);
    tab_set_labels(field.widget, wFonts.dialog, std::move(labels));
    tab_select(field.widget, field.front_page);
    XtAddCallback(field.widget, tabNselectCallback, tab_chosen, &field);
}

DialogRecord* front_page(FieldRecord& field) {
    if (field.pages.empty()) return nullptr;
    return loaded_dialog(field.pages[static_cast<std::size_t>(field.front_page)].slot);
}

}  // namespace

const FieldKind tab_kind{
    .load = load_pages,
    .create = create_tab,
    .fit = place_pages,
    .page = front_page,
    .behind = true,
};

}  // namespace tesserakit

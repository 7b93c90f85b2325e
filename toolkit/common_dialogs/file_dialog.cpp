// Motif's file selection box gives the widgets and their places; what they list comes from our own
// reading of the directory. Motif's would look at each file of a large directory one by one, and
// loses names whose bytes are no text of the locale.

#include "common/fixed_text.hpp"
#include "toolkit/base/display.hpp"
#include "toolkit/base/errors.hpp"
#include "toolkit/base/motif_text.hpp"
#include "toolkit/common_dialogs/directory_list.hpp"
#include "toolkit/common_dialogs/file_rules.hpp"
#include "toolkit/common_dialogs/filters.hpp"
#include "toolkit/common_dialogs/message_box.hpp"
#include "toolkit/common_dialogs/modal_box.hpp"
#include "toolkit/dialogs/post.hpp"
#include "toolkit/messages/modal.hpp"
#include "toolkit/tesserakit.hpp"
#include "toolkit/widgets/list_items.hpp"

#include <Xm/FileSB.h>
#include <Xm/List.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/TextF.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>

namespace tesserakit {

namespace {

constexpr int ok_status = 1;
constexpr int cancel_status = 2;

struct FileBox {
    FileFlags flags;
    std::string title;
    std::vector<FileFilter> filters;  ///< one at least
    std::size_t filter = 0;
    std::string directory;  ///< shown now: absolute, with a slash at its end
    std::string pattern;
    DirectoryList list;
    std::string result;  ///< empty until OK has ended the box

    Widget box = nullptr;
    Widget text = nullptr;
    Widget directories = nullptr;
    Widget files = nullptr;
    Widget directory_text = nullptr;
    Widget filter_text = nullptr;
};

FileBox& box_of(XtPointer closure) { return *static_cast<FileBox*>(closure); }

/// While a question stands above the box, or once it has ended, no callback does anything more: a
/// key that a list and the default button both answer comes twice.
bool takes_input(const FileBox& box) { return bModalMessageLoop && top_modal_widget() == box.box; }

// Names as they are shown

/// A name on one line, in letters that there are. What differs from the name is for the eye only.
std::string shown_name(const std::string& name) {
    std::string shown;
    for (const char c : valid_utf8(name)) {
        const bool control = static_cast<unsigned char>(c) < ' ' || c == '\x7f';
        shown += control ? "\ufffd" : std::string(1, c);
    }
    return shown;
}

std::vector<std::string> shown_names(const std::vector<std::string>& names) {
    std::vector<std::string> shown(names.size());
    std::ranges::transform(names, shown.begin(), shown_name);
    return shown;
}

void put_text(Widget field, const std::string& text) {
    XmTextFieldSetString(field, xt_name(to_locale(text)));
    // Of a long name the end is what tells it from others.
    XmTextFieldSetInsertionPosition(field, XmTextFieldGetLastPosition(field));
}

std::string text_in(Widget field) { return taken(XmTextFieldGetString(field)); }

/// What is typed, or the name of the list that looks like it: a name that can't be shown as it is
/// can't be typed either.
std::string typed_name(const FileBox& box) {
    std::string typed = text_in(box.text);
    if (typed.empty() || look_at(whole_name(typed, box.directory)).exists) return typed;
    for (const auto* names : {&box.list.files, &box.list.directories})
        for (const std::string& name : *names)
            if (shown_name(name) != name && from_locale(to_locale(shown_name(name))) == typed)
                return name;
    return typed.substr(0, typed.find_last_not_of(' ') + 1);
}

// The lists

void yyCDlist(FileBox& box) {
    box.list = read_directory(box.directory, box.pattern);
    set_items(box.directories, shown_names(box.list.directories));
    set_items(box.files, shown_names(box.list.files));
    if (box.directory_text) put_text(box.directory_text, shown_name(box.directory));
    put_text(box.filter_text, box.pattern);
}

void enter(FileBox& box, const std::string& directory) {
    box.directory = directory.ends_with('/') ? directory : directory + '/';
    yyCDlist(box);
}

void list_pattern(FileBox& box, const std::string& pattern) {
    box.pattern = pattern;
    yyCDlist(box);
}

// OK

void yycdend(FileBox& box, const std::string& name) {
    box.result = name;
    end_box();
}

void follow(FileBox& box, const std::string& name, FileVerdict verdict) {
    if (verdict == FileVerdict::NewPattern) {
        const std::size_t base = name.rfind('/') + 1;
        box.pattern = name.substr(base);
        put_text(box.text, box.pattern);
        enter(box, name.substr(0, base));
    } else if (verdict == FileVerdict::Enter) {
        put_text(box.text, "");
        enter(box, name);
    } else if (tells(verdict)) {
        yymessagebox2(MessageOk, MessageWarning, 1, text_of(verdict, name), box.title);
    } else if (asks(verdict)) {
        // Nobody overwrites a file by one Return too many.
        const int standard = verdict == FileVerdict::AskOverwrite ? 2 : 1;
        const int answer = yymessagebox2(MessageYesNo, MessageQuestion, standard,
                                         text_of(verdict, name), box.title);
        if (answer == 1) yycdend(box, name);
    } else {
        yycdend(box, name);
    }
}

void yycdcalbck_fileok(Widget, XtPointer closure, XtPointer) {
    FileBox& box = box_of(closure);
    if (!takes_input(box)) return;
    std::string typed = typed_name(box);
    if (typed.empty() && !box.flags.select_directory) {
        const int chosen = selected_item(box.directories);
        if (chosen == 0) return;
        typed = box.list.directories[static_cast<std::size_t>(chosen - 1)];
    }
    std::string name = whole_name(typed, box.directory);
    if (box.flags.select_directory && name.size() > 1 && name.ends_with('/')) name.pop_back();
    follow(box, name, judge(box.flags, name, look_at(name)));
}

void yyCDButtonPressCB(Widget, XtPointer closure, XtPointer) {
    if (takes_input(box_of(closure))) end_box();
}

// The lists and the filters

/// The name that is selected in a list, as it is shown; empty for none.
std::string selected_name(Widget list, const std::vector<std::string>& names) {
    const int item = selected_item(list);
    return item > 0 ? shown_name(names[static_cast<std::size_t>(item - 1)]) : std::string();
}

void file_chosen(Widget, XtPointer closure, XtPointer) {
    FileBox& box = box_of(closure);
    const std::string name = selected_name(box.files, box.list.files);
    if (!name.empty()) put_text(box.text, name);
}

void directory_chosen(Widget, XtPointer closure, XtPointer) {
    FileBox& box = box_of(closure);
    const std::string name = selected_name(box.directories, box.list.directories);
    if (!name.empty() && box.flags.select_directory) put_text(box.text, name);
}

/// What is typed stays: a file may be saved under that name in the directory entered.
void enter_item(FileBox& box, int item) {
    if (item < 1 || item > static_cast<int>(box.list.directories.size())) return;
    const std::string& chosen = box.list.directories[static_cast<std::size_t>(item - 1)];
    const std::string name = whole_name(chosen, box.directory);
    const bool opens = look_at(name).can_enter;
    if (!opens) return follow(box, name, FileVerdict::CannotEnter);
    if (box.flags.select_directory) put_text(box.text, "");
    enter(box, name);
}

void directory_entered(Widget, XtPointer closure, XtPointer call) {
    FileBox& box = box_of(closure);
    if (takes_input(box))
        enter_item(box, static_cast<const XmListCallbackStruct*>(call)->item_position);
}

/// Return in a list. Motif would go on to the default button, and end the box by what stands in
/// the name when a directory was meant.
void yyCDlistreturn(Widget list, XEvent*, String*, Cardinal*) {
    XtPointer closure = nullptr;
    XtVaGetValues(list, XmNuserData, &closure, nullptr);
    FileBox& box = box_of(closure);
    const int item = XmListGetKbdItemPos(list);
    if (!takes_input(box) || item == 0) return;
    if (list == box.directories) return enter_item(box, item);
    XmListSelectPos(list, item, True);
    yycdcalbck_fileok(list, &box, nullptr);
}

void filter_typed(Widget, XtPointer closure, XtPointer) {
    FileBox& box = box_of(closure);
    const std::string pattern = text_in(box.filter_text);
    if (takes_input(box)) list_pattern(box, pattern.empty() ? "*" : pattern);
}

void filter_chosen(Widget button, XtPointer closure, XtPointer) {
    FileBox& box = box_of(closure);
    XtPointer index = nullptr;
    XtVaGetValues(button, XmNuserData, &index, nullptr);
    box.filter = reinterpret_cast<std::size_t>(index);
    list_pattern(box, box.filters[box.filter].pattern);
}

// The widgets

/// In place of Motif's search: there is nothing for it to list.
void no_search(Widget, XtPointer) {}

XmString copy_or_empty(XmString text) {
    return text ? XmStringCopy(text) : XmStringCreateLocalized(xt_name(""));
}

void no_qualification(Widget, XtPointer in, XtPointer out) {
    const auto& wanted = *static_cast<XmFileSelectionBoxCallbackStruct*>(in);
    auto& answer = *static_cast<XmFileSelectionBoxCallbackStruct*>(out);
    answer.reason = wanted.reason;
    answer.event = wanted.event;
    answer.value = copy_or_empty(wanted.value);
    answer.mask = copy_or_empty(wanted.mask);
    answer.dir = copy_or_empty(wanted.dir);
    answer.pattern = copy_or_empty(wanted.pattern);
    answer.length = answer.mask_length = answer.dir_length = answer.pattern_length = 0;
}

Widget create_box(Widget parent, String name, ArgList shell_args, Cardinal count) {
    Arguments args;
    for (Cardinal i = 0; i < count; ++i) args(shell_args[i].name, shell_args[i].value);
    args(XmNqualifySearchDataProc, no_qualification)(XmNdirSearchProc, no_search);
    args(XmNfileSearchProc, no_search)(XmNpathMode, XmPATH_MODE_RELATIVE);
    args(XmNlistVisibleItemCount, 12)(XmNtextColumns, 60);
    return XmCreateFileSelectionDialog(parent, name, args.data(), args.count());
}

Widget child(const FileBox& box, unsigned char which) {
    return XmFileSelectionBoxGetChild(box.box, which);
}

void remove_children(FileBox& box) {
    std::vector<Widget> removed{child(box, XmDIALOG_HELP_BUTTON)};
    if (box.filters.size() < 2)
        for (const unsigned char which :
             {XmDIALOG_FILTER_LABEL, XmDIALOG_FILTER_TEXT, XmDIALOG_APPLY_BUTTON})
            removed.push_back(child(box, which));
    if (box.flags.select_directory)
        for (const Widget widget : {child(box, XmDIALOG_LIST_LABEL), XtParent(box.files)})
            removed.push_back(widget);
    XtUnmanageChildren(removed.data(), static_cast<Cardinal>(removed.size()));
}

void replace_callback(Widget widget, const char* name, XtCallbackProc callback, FileBox& box) {
    XtRemoveAllCallbacks(widget, name);
    XtAddCallback(widget, name, callback, &box);
}

void put_callbacks(FileBox& box) {
    replace_callback(child(box, XmDIALOG_OK_BUTTON), XmNactivateCallback, yycdcalbck_fileok, box);
    replace_callback(child(box, XmDIALOG_CANCEL_BUTTON), XmNactivateCallback, yyCDButtonPressCB,
                     box);
    replace_callback(child(box, XmDIALOG_APPLY_BUTTON), XmNactivateCallback, filter_typed, box);
    for (const Widget list : {box.files, box.directories})
        XtVaSetValues(list, XmNselectionPolicy, XmBROWSE_SELECT, nullptr);
    replace_callback(box.files, XmNbrowseSelectionCallback, file_chosen, box);
    replace_callback(box.files, XmNdefaultActionCallback, yycdcalbck_fileok, box);
    replace_callback(box.directories, XmNbrowseSelectionCallback, directory_chosen, box);
    replace_callback(box.directories, XmNdefaultActionCallback, directory_entered, box);
}

void put_list_keys(FileBox& box) {
    static const bool known = [] {
        XtActionsRec action{xt_name("yyCDlistreturn"), yyCDlistreturn};
        XtAppAddActions(yydisplay.app, &action, 1);
        return true;
    }();
    if (!known) return;
    for (const Widget list : {box.files, box.directories}) {
        XtVaSetValues(list, XmNuserData, &box, nullptr);
        XtOverrideTranslations(list, XtParseTranslationTable("<Key>osfActivate: yyCDlistreturn()\n"
                                                             "<Key>Return: yyCDlistreturn()\n"
                                                             "<Key>KP_Enter: yyCDlistreturn()"));
    }
}

/// An option menu of all filters.
void put_filter_menu(FileBox& box) {
    if (box.filters.size() < 2) return;
    const Widget menu = XmCreatePulldownMenu(box.box, xt_name("filters"), nullptr, 0);
    Widget first = nullptr;
    for (std::size_t i = 0; i < box.filters.size(); ++i) {
        const CompoundText label(box.filters[i].description + " (" + box.filters[i].pattern + ")");
        Arguments args;
        args(XmNlabelString, label.get())(XmNuserData, i);
        const Widget item = args.create("filter", xmPushButtonWidgetClass, menu);
        XtAddCallback(item, XmNactivateCallback, filter_chosen, &box);
        XtManageChild(item);
        if (i == box.filter) first = item;
    }
    const CompoundText label("File type");
    Arguments args;
    args(XmNsubMenuId, menu)(XmNmenuHistory, first)(XmNlabelString, label.get());
    XtManageChild(XmCreateOptionMenu(box.box, xt_name("filterMenu"), args.data(), args.count()));
}

void put_labels(const FileBox& box) {
    const CompoundText name(box.flags.select_directory ? "Directory name" : "File name");
    XtVaSetValues(box.box, XmNselectionLabelString, name.get(), nullptr);
}

void yygetfiledialog(FileBox& box, Widget widget, const std::string& base) {
    box.box = widget;
    box.text = child(box, XmDIALOG_TEXT);
    box.files = child(box, XmDIALOG_LIST);
    box.directories = child(box, XmDIALOG_DIR_LIST);
    box.filter_text = child(box, XmDIALOG_FILTER_TEXT);
    box.directory_text = XtNameToWidget(widget, "DirText");
    if (box.directory_text)
        XtVaSetValues(box.directory_text, XmNeditable, False, XmNcursorPositionVisible, False,
                      XmNtraversalOn, False, nullptr);
    put_labels(box);
    put_callbacks(box);
    put_list_keys(box);
    put_filter_menu(box);
    remove_children(box);
    XtVaSetValues(widget, XmNinitialFocus, box.text, nullptr);
    put_text(box.text, shown_name(base));
    yyCDlist(box);
}

// The name that goes in

std::string yydirn() {
    std::error_code gone;
    const std::string directory = std::filesystem::current_path(gone).string();
    return directory.ends_with('/') ? directory : directory + '/';
}

/// Fills the directory to begin in, and answers the name to begin with.
std::string start_place(FileBox& box, std::string_view given) {
    box.directory = yydirn();
    const SplitName split = yysplitp(given);
    const std::string whole = whole_name(split.directory + split.base, box.directory);
    const NameState state = look_at(whole);
    if (state.is_directory) {
        box.directory = whole.ends_with('/') ? whole : whole + '/';
        return {};
    }
    if (state.directory_exists) box.directory = yysplitp(whole).directory;
    return split.base;
}

}  // namespace

void wselectfile2(std::string_view filter, int flags, std::string& filename, std::string_view title,
                  int* type) {
    FileBox box;
    box.flags = file_flags(flags);
    box.title = without_trailing_blanks(title).empty() ? "Select File" : title;
    box.filters = read_filters(filter);
    if (box.filters.empty()) box.filters.push_back({"All files", "*"});
    const int wanted = type ? *type : 1;
    if (wanted > 1 && wanted <= static_cast<int>(box.filters.size()))
        box.filter = static_cast<std::size_t>(wanted - 1);
    box.pattern = box.filters[box.filter].pattern;
    const std::string base = start_place(box, filename);
    ModalBox modal(create_box, "FSelectionBox", box.title, yyCDButtonPressCB, &box);
    if (!modal.widget()) {
        note_common_exit(-1);
        return yyerror(CommonDialogError, "WSelectFile");
    }
    yygetfiledialog(box, modal.widget(), base);
    modal.run();
    const bool ok = !box.result.empty();
    note_common_exit(ok ? ok_status : cancel_status);
    if (!ok) return;
    filename = box.result;
    if (type) *type = static_cast<int>(box.filter) + 1;
    if (!box.flags.keep_directory) return;
    std::error_code refused;  // a directory that can be written but not entered stays unvisited
    std::filesystem::current_path(
        box.flags.select_directory ? filename : yysplitp(filename).directory, refused);
}

}  // namespace tesserakit

#include "toolkit/widgets/list_items.hpp"

#include "toolkit/base/motif_text.hpp"

#include <Xm/List.h>

#include <deque>
#include <vector>

namespace tesserakit {

void set_items(Widget list, std::span<const std::string> items) {
    std::deque<CompoundText> texts;
    std::vector<XmString> table;
    for (const std::string& item : items) table.push_back(texts.emplace_back(item).get());
    XmListDeleteAllItems(list);
    XmListAddItemsUnselected(list, table.data(), static_cast<int>(table.size()), 0);
}

int item_count(Widget list) {
    int count = 0;
    XtVaGetValues(list, XmNitemCount, &count, nullptr);
    return count;
}

int selected_item(Widget list) {
    int* positions = nullptr;
    int count = 0;
    if (!XmListGetSelectedPos(list, &positions, &count)) return 0;
    const int item = count > 0 ? positions[0] : 0;
    XtFree(reinterpret_cast<char*>(positions));
    return item;
}

void select_item(Widget list, int item) {
    XmListDeselectAllItems(list);
    if (item > 0) XmListSelectPos(list, item, False);
}

std::string item_text(Widget list, int item) {
    XmStringTable items = nullptr;
    XtVaGetValues(list, XmNitems, &items, nullptr);
    if (item < 1 || item > item_count(list) || !items) return {};
    return plain_text(items[item - 1]);
}

}  // namespace tesserakit

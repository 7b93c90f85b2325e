/// The list of nodes that atoms, bonds, polyhedra and magnetic atoms share.
///
/// Nodes stand in the order of insertion, which is the order of the file. Each node owns the
/// display list of its own objects; the main list of a NodeList calls those of the visible nodes,
/// so that a frame costs one call. Both are compiled when they are next drawn: a file of n lines
/// costs n compilations, and what comes and goes between two frames costs none.
///
/// What makes the objects of a node stale is each unit's own affair.
#pragma once

#include "common/fatal.hpp"
#include "scene/display_list.hpp"
#include "scene/shown_box.hpp"

#include <cstddef>
#include <iterator>
#include <memory>
#include <string_view>
#include <utility>

/// A Node is default constructible and has the members
///
///     int nodisplay = 0;           // not 0: left out of the main list
///     bool stale = true;           // its objects aren't compiled; for compile_nodes only
///     DisplayList dlist;           // its objects; deleted with the node
///     std::unique_ptr<Node> next;  // empty at the tail; moved by NodeList only
template <class Node>
class NodeList {
    template <class T>
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Node;
        using difference_type = std::ptrdiff_t;
        using pointer = T*;
        using reference = T&;

        Iterator() = default;
        explicit Iterator(T* node) : node_(node) {}
        T& operator*() const { return *node_; }
        T* operator->() const { return node_; }
        Iterator& operator++() {
            node_ = node_->next.get();
            return *this;
        }
        Iterator operator++(int) {
            const Iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const Iterator&, const Iterator&) = default;

    private:
        T* node_ = nullptr;
    };

public:
    using iterator = Iterator<Node>;
    using const_iterator = Iterator<const Node>;

    NodeList() = default;
    NodeList(const NodeList&) = delete;
    NodeList& operator=(const NodeList&) = delete;
    ~NodeList() {
        while (head_) remove_head();
    }

    bool empty() const { return !head_; }
    std::size_t size() const { return size_; }
    iterator begin() { return iterator(head_.get()); }
    iterator end() { return iterator(); }
    const_iterator begin() const { return const_iterator(head_.get()); }
    const_iterator end() const { return const_iterator(); }

    /// The first node and the one that was inserted last, or null.
    Node* head() { return head_.get(); }
    const Node* head() const { return head_.get(); }
    Node* tail() { return tail_; }

    /// The node at a 1-based position, or null outside the list.
    Node* at(int index) { return index < 1 ? nullptr : link_at(index).get(); }
    const Node* at(int index) const { return const_cast<NodeList*>(this)->at(index); }

    /// A new node behind the tail, with default members. `label` names the allocation if it fails.
    Node& push_back(std::string_view label) {
        std::unique_ptr<Node> node =
            fatal::allocate(label, [] { return std::make_unique<Node>(); });
        Node& added = *node;
        (tail_ != nullptr ? tail_->next : head_) = std::move(node);
        tail_ = &added;
        ++size_;
        some_stale_ = true;
        contents_changed();
        return added;
    }

    /// Removes the node at a 1-based position; an index outside the list changes nothing.
    void remove(int index) {
        if (index < 1) return;
        if (index == 1) return remove_head();
        std::unique_ptr<Node>& before = link_at(index - 1);
        if (!before || !before->next) return;
        if (before->next.get() == tail_) tail_ = before.get();
        unlink(before->next);
    }

    /// Removes all nodes, first to last. The main list's name stays for the nodes to come.
    void clear() {
        while (head_) remove_head();
    }

    /// The objects of `node` have changed: its list is compiled anew at the next frame.
    void make_stale(Node& node) {
        node.stale = true;
        some_stale_ = true;
        contents_changed();
    }

    /// construct(node) for each stale node, which compiles its list; for all nodes with `all`, or
    /// when another part of the box is shown than the last time.
    template <class Construct>
    void compile_nodes(bool all, Construct construct) {
        const unsigned generation = shown_box::generation();
        all = all || generation != generation_;
        generation_ = generation;
        if (!all && !some_stale_) return;
        some_stale_ = false;
        for (Node& node : *this) {
            if (!all && !node.stale) continue;
            construct(node);
            node.stale = false;
        }
    }

    /// The main list is compiled anew when it is next called.
    void renew_main_list() { main_list_stale_ = true; }

    /// Sets `nodisplay` on the nodes for which `chosen` holds, and renews the main list.
    template <class Predicate>
    void change_plotting_status(int nodisplay, Predicate chosen) {
        for (Node& node : *this)
            if (chosen(std::as_const(node))) node.nodisplay = nodisplay;
        renew_main_list();
    }
    void change_plotting_status(int nodisplay) {
        change_plotting_status(nodisplay, [](const Node&) { return true; });
    }

    /// The name of the main list; 0 before its first call.
    GLuint main_list() const { return main_list_; }

    /// Calls the lists of the visible nodes in order, through the main list, which is compiled
    /// first where that is due; its name is taken the first time, and kept. Nothing on an empty
    /// list.
    void call_main_list() {
        if (empty()) return;
        if (main_list_stale_) compile_main_list();
        glCallList(main_list_);
    }

private:
    void compile_main_list() {
        if (main_list_ == 0) main_list_ = glGenLists(1);
        glNewList(main_list_, GL_COMPILE);
        for (const Node& node : *this)
            if (node.nodisplay == 0) glCallList(node.dlist.name());
        glEndList();
        main_list_stale_ = false;
    }

    /// Nodes have come or gone, or hold other objects. The main list must not keep the call of a
    /// list that is gone: its name may come back as that of a node elsewhere.
    void contents_changed() {
        main_list_stale_ = true;
        shown_box::contents_changed();
    }

    /// The link that holds the node at `index`, or the empty one behind the tail.
    std::unique_ptr<Node>& link_at(int index) {
        std::unique_ptr<Node>* link = &head_;
        for (; index > 1 && *link; --index) link = &(*link)->next;
        return *link;
    }

    /// The node leaves the chain before it dies: were it to take its followers along, a long list
    /// would be freed by as deep a recursion.
    void unlink(std::unique_ptr<Node>& link) {
        std::unique_ptr<Node> node = std::move(link);
        link = std::move(node->next);
        --size_;
        contents_changed();
    }

    void remove_head() {
        if (!head_) return;
        if (head_.get() == tail_) tail_ = nullptr;
        unlink(head_);
    }

    std::unique_ptr<Node> head_;
    Node* tail_ = nullptr;
    std::size_t size_ = 0;
    GLuint main_list_ = 0;
    bool main_list_stale_ = true;
    bool some_stale_ = false;
    unsigned generation_ = 0;  ///< of shown_box, when the nodes were compiled
};

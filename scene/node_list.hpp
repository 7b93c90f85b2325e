/// The list of nodes that atoms, bonds, polyhedra and magnetic atoms share.
///
/// Nodes stand in the order of insertion, which is the order of the file. Each node owns the
/// display list of its own objects; the main list of a NodeList calls those of the visible nodes,
/// so that a frame costs one call. When the lists are rebuilt is each unit's own affair: a removal
/// here, for one, leaves the main list as it is.
#pragma once

#include "common/fatal.hpp"
#include "scene/display_list.hpp"

#include <cstddef>
#include <iterator>
#include <memory>
#include <string_view>
#include <utility>

/// A Node is default constructible and has the members
///
///     int nodisplay = 0;           // not 0: left out of the main list
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
        return added;
    }

    /// Removes the node at a 1-based position; an index outside the list changes nothing. The main
    /// list isn't rebuilt: it keeps a call of the deleted list, which OpenGL ignores.
    void remove(int index) {
        if (index < 1) return;
        if (index == 1) return remove_head();
        std::unique_ptr<Node>& before = link_at(index - 1);
        if (!before || !before->next) return;
        if (before->next.get() == tail_) tail_ = before.get();
        unlink(before->next);
    }

    /// Removes all nodes, first to last, and forgets the main list's name without deleting that
    /// list; the next compile_main_list takes a new one.
    void clear() {
        while (head_) remove_head();
        main_list_ = 0;
    }

    /// Compiles the main list anew, a call for each visible node in order; its name is taken at
    /// the first time. Does nothing on an empty list.
    void compile_main_list() {
        if (empty()) return;
        if (main_list_ == 0) main_list_ = glGenLists(1);
        glNewList(main_list_, GL_COMPILE);
        for (const Node& node : *this)
            if (node.nodisplay == 0) glCallList(node.dlist.name());
        glEndList();
    }

    /// Sets `nodisplay` on the nodes for which `chosen` holds, and compiles the main list anew.
    template <class Predicate>
    void change_plotting_status(int nodisplay, Predicate chosen) {
        for (Node& node : *this)
            if (chosen(std::as_const(node))) node.nodisplay = nodisplay;
        compile_main_list();
    }
    void change_plotting_status(int nodisplay) {
        change_plotting_status(nodisplay, [](const Node&) { return true; });
    }

    /// The name of the main list; 0 before the first compile_main_list.
    GLuint main_list() const { return main_list_; }

    /// Calls the main list, if there is one.
    void call_main_list() const {
        if (main_list_ != 0) glCallList(main_list_);
    }

private:
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
};

#include "scene/node_list.hpp"

#include "tests/support/gl_record.hpp"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

struct Node {
    int value = 0;
    int nodisplay = 0;
    bool stale = true;
    DisplayList dlist;
    std::unique_ptr<Node> next;
};

NodeList<Node>& list_of(NodeList<Node>& list, int count) {
    for (int i = 1; i <= count; ++i) {
        Node& node = list.push_back("node");
        node.value = i;
        node.dlist.generate();
    }
    return list;
}

std::vector<int> values(const NodeList<Node>& list) {
    std::vector<int> result;
    for (const Node& node : list) result.push_back(node.value);
    return result;
}

TEST(DisplayList, TheNameIsDeletedOnceByItsLastOwner) {
    DisplayList first;
    first.generate();
    const GLuint name = first.name();
    {
        DisplayList second(std::move(first));
        EXPECT_EQ(second.name(), name);
        EXPECT_EQ(first.name(), 0u);
        EXPECT_TRUE(gl_record::exists(name));
    }
    EXPECT_FALSE(gl_record::exists(name));
    EXPECT_EQ(gl_record::count("glDeleteLists"), 1u);
}

TEST(NodeList, NodesStandInTheOrderOfInsertionAndCountFromOne) {
    NodeList<Node> list;
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.tail(), nullptr);
    list_of(list, 3);
    EXPECT_EQ(values(list), (std::vector{1, 2, 3}));
    EXPECT_EQ(list.at(1)->value, 1);
    EXPECT_EQ(list.at(3), list.tail());
    for (const int outside : {-1, 0, 4}) EXPECT_EQ(list.at(outside), nullptr);
}

TEST(NodeList, RemovalKeepsTheChainAndTheTail) {
    NodeList<Node> list;
    list_of(list, 5);
    list.remove(3);
    EXPECT_EQ(values(list), (std::vector{1, 2, 4, 5}));
    list.remove(4);
    EXPECT_EQ(list.tail()->value, 4);
    list.remove(1);
    EXPECT_EQ(values(list), (std::vector{2, 4}));
    for (const int outside : {-1, 0, 3}) list.remove(outside);
    list.push_back("node").value = 6;
    EXPECT_EQ(values(list), (std::vector{2, 4, 6}));
    for (int i = 0; i < 3; ++i) list.remove(1);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.tail(), nullptr);
    EXPECT_EQ(list.size(), 0u);
}

/// The lists that a call of the main list comes to.
std::vector<GLuint> called(NodeList<Node>& list) {
    gl_record::clear();
    list.call_main_list();
    std::vector<GLuint> names;
    for (const std::string& call : gl_record::contents(list.main_list()))
        names.push_back(static_cast<GLuint>(std::stoul(call.substr(call.find('(') + 1))));
    return gl_record::count("glCallList") > names.size() ? names : std::vector<GLuint>{};
}

GLuint name_at(NodeList<Node>& list, int index) { return list.at(index)->dlist.name(); }

TEST(NodeList, TheMainListCallsTheVisibleNodesInOrder) {
    NodeList<Node> list;
    EXPECT_THAT(called(list), testing::IsEmpty());
    EXPECT_EQ(list.main_list(), 0u);  // none for an empty list
    list_of(list, 3);
    list.at(2)->nodisplay = 7;
    EXPECT_THAT(called(list), testing::ElementsAre(name_at(list, 1), name_at(list, 3)));
    const GLuint main = list.main_list();
    list.change_plotting_status(1, [](const Node& node) { return node.value == 1; });
    EXPECT_THAT(called(list), testing::ElementsAre(name_at(list, 3)));
    list.change_plotting_status(0);
    EXPECT_EQ(called(list).size(), 3u);
    EXPECT_EQ(list.main_list(), main);
}

TEST(NodeList, TheMainListIsCompiledOnceBetweenTwoCalls) {
    NodeList<Node> list;
    gl_record::clear();
    list_of(list, 100);
    EXPECT_EQ(gl_record::count("glNewList"), 0u);
    EXPECT_EQ(called(list).size(), 100u);
    EXPECT_EQ(gl_record::count("glNewList"), 1u);
    gl_record::clear();
    list.call_main_list();
    EXPECT_EQ(gl_record::count("glNewList"), 0u) << "nothing has changed";
    EXPECT_EQ(gl_record::count("glCallList"), 1u);
}

// The name of a deleted list comes back with the next one, of whatever unit: a call that stayed
// behind would draw that.
TEST(NodeList, NoCallOfARemovedNodeStays) {
    NodeList<Node> list;
    list_of(list, 3).call_main_list();
    gl_record::clear();
    const GLuint removed = name_at(list, 2);
    list.remove(2);
    EXPECT_THAT(gl_record::texts(),
                testing::ElementsAre("glDeleteLists(" + std::to_string(removed) + ", 1)"));
    EXPECT_THAT(called(list), testing::ElementsAre(name_at(list, 1), name_at(list, 2)));
}

TEST(NodeList, AnEmptiedListKeepsItsNameForTheNextOne) {
    NodeList<Node> list;
    list_of(list, 2).call_main_list();
    const GLuint main = list.main_list();
    list.clear();
    EXPECT_THAT(called(list), testing::IsEmpty());
    list_of(list, 1);
    EXPECT_EQ(called(list).size(), 1u);
    EXPECT_EQ(list.main_list(), main);
}

TEST(NodeList, OnlyStaleNodesAreCompiledUnlessAllAreAskedFor) {
    NodeList<Node> list;
    list_of(list, 3);
    std::vector<int> compiled;
    const auto compile = [&](bool all) {
        compiled.clear();
        list.compile_nodes(all, [&](const Node& node) { compiled.push_back(node.value); });
        return compiled;
    };
    EXPECT_THAT(compile(false), testing::ElementsAre(1, 2, 3));
    EXPECT_THAT(compile(false), testing::IsEmpty());
    list.make_stale(*list.at(2));
    EXPECT_THAT(compile(false), testing::ElementsAre(2));
    EXPECT_THAT(compile(true), testing::ElementsAre(1, 2, 3));
}

TEST(NodeList, AMillionNodesAreFreedWithoutRecursion) {
    NodeList<Node> list;
    for (int i = 0; i < 1'000'000; ++i) list.push_back("node");
    list.remove(2);
    EXPECT_EQ(list.size(), 999'999u);
}

}  // namespace

#include "scene/node_list.hpp"

#include "tests/support/gl_record.hpp"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

struct Node {
    int value = 0;
    int nodisplay = 0;
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

TEST(NodeList, TheMainListCallsTheVisibleNodesInOrder) {
    NodeList<Node> list;
    list.compile_main_list();
    EXPECT_EQ(list.main_list(), 0u);  // none for an empty list
    list_of(list, 3);
    list.at(2)->nodisplay = 7;
    list.compile_main_list();
    const GLuint main = list.main_list();
    const auto call = [&](int index) {
        return "glCallList(" + std::to_string(list.at(index)->dlist.name()) + ")";
    };
    EXPECT_THAT(gl_record::contents(main), testing::ElementsAre(call(1), call(3)));
    list.change_plotting_status(1, [](const Node& node) { return node.value == 1; });
    EXPECT_THAT(gl_record::contents(main), testing::ElementsAre(call(3)));
    list.change_plotting_status(0);
    EXPECT_THAT(gl_record::contents(main), testing::ElementsAre(call(1), call(2), call(3)));
    EXPECT_EQ(list.main_list(), main);
}

TEST(NodeList, ARemovalLeavesTheMainListAndClearForgetsIt) {
    NodeList<Node> list;
    list_of(list, 2).compile_main_list();
    const GLuint main = list.main_list();
    gl_record::clear();
    const GLuint removed = list.at(1)->dlist.name();
    list.remove(1);
    EXPECT_THAT(gl_record::texts(),
                testing::ElementsAre("glDeleteLists(" + std::to_string(removed) + ", 1)"));
    EXPECT_EQ(gl_record::contents(main).size(), 2u);
    list.clear();
    EXPECT_EQ(list.main_list(), 0u);
    EXPECT_TRUE(gl_record::exists(main));
    list_of(list, 1).compile_main_list();
    EXPECT_NE(list.main_list(), main);
}

TEST(NodeList, AMillionNodesAreFreedWithoutRecursion) {
    NodeList<Node> list;
    for (int i = 0; i < 1'000'000; ++i) list.push_back("node");
    list.remove(2);
    EXPECT_EQ(list.size(), 999'999u);
}

}  // namespace

#include "Submodules/CorpLibrary2/Foundation/XXTree.h"

#include <gtest/gtest.h>

#include <string>

namespace dayward {
namespace {

using Tree = XXTree<std::string>;

Tree sampleTree() {
    Tree tree;
    tree.insertObjects({"a", "b", "c"}, std::size_t{0});
    tree.insertObjects({"x", "b"}, std::size_t{1});
    return tree;
}

TEST(XXTree, ChangesByPathsAndBySections) {
    auto tree = sampleTree();
    tree.insertObjects({"1", "2"}, Tree::Paths{{0, 0}, {0, 1}});
    EXPECT_EQ(tree.objectsAtSection(0), (Tree::Objects{"1", "2", "a", "b", "c"}));
    tree.removeObjectsAtIndexPaths({{0, 0}, {1, 1}, {0, 4}, {0, 0}});
    EXPECT_EQ(tree.objectsAtSection(0), (Tree::Objects{"2", "a", "b"})) << "the paths are those before the removal";
    EXPECT_EQ(tree.objectsAtSection(1), Tree::Objects{"x"});
    tree.removeObjectsAtIndexes({0, 2}, 0);
    tree.replaceObjectsAtIndexPaths({{0, 0}, {1, 0}}, {"A", "X"});
    tree.insertObject("Y", 1, 1);
    tree.replaceObjectAtIndex(0, 0, "B");
    Tree expected;
    expected.insertObjects({"X", "Y"}, std::size_t{0});
    expected.insertObjects({"B"}, std::size_t{0});
    EXPECT_TRUE(tree.isEqualToTree(expected));
    tree.removeObjectsAtIndex(0, 0);
    EXPECT_EQ(tree.numberOfSections(), 2U) << "an emptied section stays";
    EXPECT_FALSE(tree.isEqualToTree(expected));
    tree.replaceSection(0, {"q"});
    tree.removeSection(1);
    EXPECT_EQ(tree.objectAtIndexPath({0, 0}), "q");
}

TEST(XXTree, PathsOutOfRangeStopTheProcess) {
    auto tree = sampleTree();
    EXPECT_DEATH((void)tree.objectAtIndexPath({0, 3}), "no such object");
    EXPECT_DEATH((void)tree.objectAtIndexPath({2, 0}), "no such section");
    EXPECT_DEATH(tree.insertObject("z", {0, 4}), "past the end");
    EXPECT_DEATH(tree.insertObjects({"z"}, Tree::Paths{}), "as many");
}

}  // namespace
}  // namespace dayward

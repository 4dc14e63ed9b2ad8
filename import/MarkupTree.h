#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace lorelin {

// Elements and texts of a file in XML or HTML, UTF-8. Made once, in the order of the file. Elements that lie
// deeper than kDeepest become children of the one there, so that a recursion through it has an end.
class MarkupTree {
 public:
  static constexpr std::size_t kDeepest = 200;
  static constexpr std::size_t kMostNodes = 3'000'000;

  class Node;

  MarkupTree();

  // Throws RuntimeError when the file has too many of them.
  void Open(std::string_view name);
  // Of the element that was opened last.
  void AddAttribute(std::string_view name, std::string_view value);
  void AddText(std::string_view text);
  void Close();

  // That the file breaks the rules of its language, so that what follows may be missing.
  void SetDamaged() { damaged_ = true; }
  [[nodiscard]] bool IsDamaged() const { return damaged_; }

  // The node that holds the outermost elements.
  [[nodiscard]] Node Root() const;

 private:
  using Id = std::uint32_t;
  struct Item {
    Id parent = 0;
    Id first = 0;  // 0 for none: no node has the root as its child or neighbour
    Id last = 0;
    Id next = 0;
    std::uint32_t name = 0;  // 0 for a text
    std::uint32_t textAt = 0;
    std::uint32_t textSize = 0;
    std::uint32_t attributes = 0;  // the first of them
    std::uint32_t attributeCount = 0;
  };
  struct AttributeItem {
    std::uint32_t name = 0;
    std::uint32_t textAt = 0;
    std::uint32_t textSize = 0;
  };

  std::uint32_t NumberOf(std::string_view name);
  std::uint32_t Store(std::string_view text);
  Id Append();

  std::vector<Item> items_;
  std::vector<AttributeItem> attributes_;
  std::deque<std::string> names_;
  std::unordered_map<std::string_view, std::uint32_t> numbers_;
  std::string texts_;
  std::vector<Id> open_;
  std::size_t tooDeep_ = 0;  // elements open below the deepest
  Id latest_ = 0;
  bool damaged_ = false;
};

// An element or a text of a tree, which must outlive it; or none.
class MarkupTree::Node {
 public:
  Node() = default;
  explicit operator bool() const { return tree_ != nullptr; }
  bool operator==(const Node&) const = default;

  [[nodiscard]] bool IsText() const { return tree_ != nullptr && Item().name == 0; }
  // "" for a text.
  [[nodiscard]] std::string_view Name() const;
  [[nodiscard]] bool Is(std::string_view name) const { return tree_ != nullptr && Name() == name; }
  // "" for an element.
  [[nodiscard]] std::string_view Text() const;
  // "" where the element has none of the name.
  [[nodiscard]] std::string_view Attribute(std::string_view name) const;
  [[nodiscard]] bool HasAttribute(std::string_view name) const;

  [[nodiscard]] Node Parent() const;
  [[nodiscard]] Node FirstChild() const { return At(Item().first); }
  [[nodiscard]] Node Next() const { return At(Item().next); }
  // The first child of the name, or none.
  [[nodiscard]] Node Child(std::string_view name) const;
  // The first element of the name below this one, in the order of the file, or none.
  [[nodiscard]] Node Find(std::string_view name) const;
  // The node that follows this one in the order of the file below `top`, or none.
  [[nodiscard]] Node Following(Node top) const;
  // All texts below, in their order.
  [[nodiscard]] std::string WholeText() const;
  // Which of the tree's nodes it is, in the order of the file.
  [[nodiscard]] std::size_t Number() const { return id_; }

 private:
  friend class MarkupTree;
  Node(const MarkupTree* tree, Id id) : tree_(tree), id_(id) {}
  [[nodiscard]] const MarkupTree::Item& Item() const { return tree_->items_[id_]; }
  [[nodiscard]] Node At(Id id) const { return id == 0 ? Node() : Node(tree_, id); }
  [[nodiscard]] const AttributeItem* Find(const MarkupTree& tree, std::string_view name) const;

  const MarkupTree* tree_ = nullptr;
  Id id_ = 0;
};

}  // namespace lorelin

#include "import/MarkupTree.h"

#include <limits>

#include "import/importErrors.h"

namespace lorelin {

MarkupTree::MarkupTree() {
  names_.emplace_back();
  NumberOf("#document");
  items_.emplace_back().name = 1;
  open_.push_back(0);
}

std::uint32_t MarkupTree::NumberOf(std::string_view name) {
  const auto found = numbers_.find(name);
  if (found != numbers_.end()) return found->second;
  const auto number = static_cast<std::uint32_t>(names_.size());
  names_.emplace_back(name);
  numbers_.emplace(names_.back(), number);
  return number;
}

std::uint32_t MarkupTree::Store(std::string_view text) {
  const std::size_t at = texts_.size();
  if (text.size() > std::numeric_limits<std::uint32_t>::max() - at) throw DocumentTooLarge();
  texts_ += text;
  return static_cast<std::uint32_t>(at);
}

MarkupTree::Id MarkupTree::Append() {
  if (items_.size() >= kMostNodes) throw DocumentTooLarge();
  const auto id = static_cast<Id>(items_.size());
  Item& item = items_.emplace_back();
  item.parent = open_.back();
  Item& parent = items_[item.parent];
  (parent.last == 0 ? parent.first : items_[parent.last].next) = id;
  parent.last = id;
  return id;
}

void MarkupTree::Open(std::string_view name) {
  latest_ = Append();
  items_[latest_].name = NumberOf(name);
  items_[latest_].attributes = static_cast<std::uint32_t>(attributes_.size());
  if (open_.size() < kDeepest) {
    open_.push_back(latest_);
  } else {
    ++tooDeep_;
  }
}

void MarkupTree::AddAttribute(std::string_view name, std::string_view value) {
  if (attributes_.size() >= kMostNodes) throw DocumentTooLarge();
  attributes_.push_back({NumberOf(name), Store(value), static_cast<std::uint32_t>(value.size())});
  ++items_[latest_].attributeCount;
}

void MarkupTree::AddText(std::string_view text) {
  if (text.empty()) return;
  const Id last = items_[open_.back()].last;
  // Parsers hand a long text on in pieces.
  const bool continues =
      last != 0 && items_[last].name == 0 && items_[last].textAt + items_[last].textSize == texts_.size();
  const Id id = continues ? last : Append();
  const std::uint32_t at = Store(text);
  if (!continues) items_[id].textAt = at;
  items_[id].textSize += static_cast<std::uint32_t>(text.size());
}

void MarkupTree::Close() {
  if (tooDeep_ > 0) {
    --tooDeep_;
  } else if (open_.size() > 1) {
    open_.pop_back();
  }
}

MarkupTree::Node MarkupTree::Root() const {
  return {this, 0};
}

std::string_view MarkupTree::Node::Name() const {
  return tree_->names_[Item().name];
}

std::string_view MarkupTree::Node::Text() const {
  return std::string_view(tree_->texts_).substr(Item().textAt, Item().textSize);
}

const MarkupTree::AttributeItem* MarkupTree::Node::Find(const MarkupTree& tree, std::string_view name) const {
  for (std::uint32_t i = 0; i < Item().attributeCount; ++i) {
    const AttributeItem& attribute = tree.attributes_[Item().attributes + i];
    if (tree.names_[attribute.name] == name) return &attribute;
  }
  return nullptr;
}

std::string_view MarkupTree::Node::Attribute(std::string_view name) const {
  const AttributeItem* const found = Find(*tree_, name);
  if (found == nullptr) return {};
  return std::string_view(tree_->texts_).substr(found->textAt, found->textSize);
}

bool MarkupTree::Node::HasAttribute(std::string_view name) const {
  return Find(*tree_, name) != nullptr;
}

MarkupTree::Node MarkupTree::Node::Parent() const {
  return id_ == 0 ? Node() : Node(tree_, Item().parent);
}

MarkupTree::Node MarkupTree::Node::Child(std::string_view name) const {
  Node child = FirstChild();
  while (child && !child.Is(name)) child = child.Next();
  return child;
}

MarkupTree::Node MarkupTree::Node::Following(Node top) const {
  if (const Node child = FirstChild()) return child;
  for (Node node = *this; node && node != top; node = node.Parent()) {
    if (const Node next = node.Next()) return next;
  }
  return {};
}

MarkupTree::Node MarkupTree::Node::Find(std::string_view name) const {
  Node node = Following(*this);
  while (node && !node.Is(name)) node = node.Following(*this);
  return node;
}

std::string MarkupTree::Node::WholeText() const {
  std::string text(Text());
  for (Node node = Following(*this); node; node = node.Following(*this)) text += node.Text();
  return text;
}

}  // namespace lorelin

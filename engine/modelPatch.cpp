#include "engine/modelPatch.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

#include "engine/protobuf.h"

namespace lorelin::engine {
namespace {

// Numbers of fields (onnx.proto3 of ONNX 1.12, IR version 8).
namespace model {
constexpr std::uint64_t kGraph = 7;
constexpr std::uint64_t kOperators = 8;
constexpr std::uint64_t kOperatorVersion = 2;
constexpr std::uint64_t kOperatorDomain = 1;
}  // namespace model
namespace graph {
constexpr std::uint64_t kNode = 1;
constexpr std::uint64_t kInitializer = 5;
constexpr std::uint64_t kInput = 11;
constexpr std::uint64_t kOutput = 12;
}  // namespace graph
namespace node {
constexpr std::uint64_t kInput = 1;
constexpr std::uint64_t kOutput = 2;
constexpr std::uint64_t kName = 3;
constexpr std::uint64_t kOperator = 4;
constexpr std::uint64_t kAttribute = 5;
}  // namespace node
namespace tensor {
constexpr std::uint64_t kDimension = 1;
constexpr std::uint64_t kType = 2;
constexpr std::uint64_t kName = 8;
constexpr std::uint64_t kBytes = 9;
constexpr std::uint64_t kOutside = 13;
constexpr std::uint64_t kPlace = 14;
constexpr std::uint64_t kFloat = 1;
constexpr std::uint64_t kInt64 = 7;
}  // namespace tensor
constexpr std::uint64_t kValueName = 1;
constexpr std::uint64_t kAttributeName = 1;

constexpr std::string_view kDurationsOf = "Ceil";
constexpr std::string_view kNoiseOf = "RandomNormalLike";
// The operators that make the noise exist since this version.
constexpr std::uint64_t kOldestOperators = 13;
constexpr std::uint64_t kNewestOperators = 1000;
constexpr std::size_t kMostNoises = 16;
// A prime, so that its repetitions fall on another place of every row.
constexpr std::size_t kNoiseLength = 262139;

struct Node {
  std::string_view whole;
  std::vector<std::string_view> inputs;
  std::vector<std::string_view> outputs;
  std::string_view kind;
  bool plain = true;  // nothing changes what it does by itself
};

struct Graph {
  std::vector<std::string_view> inputs;
  std::vector<std::string_view> outputs;
  std::vector<Node> durations;
  std::vector<Node> noises;
};

struct Wrong {
  std::string text;
};

constexpr const char* kDamaged = "sie ist beschädigt oder kein Modell";
constexpr const char* kForeign = "ihr Modell ist keines für Sprache";

template <typename Take>
void ForEach(std::string_view message, const Take& take) {
  ProtobufReader reader(message);
  while (const auto field = reader.Next()) take(*field);
  if (reader.Broken()) throw Wrong{kDamaged};
}

std::string_view TextIn(std::string_view message, std::uint64_t number) {
  std::string_view text;
  ForEach(message, [&](const ProtobufField& field) {
    if (field.number == number) text = field.content;
  });
  return text;
}

Node ReadNode(const ProtobufField& given) {
  Node read{.whole = given.whole, .inputs = {}, .outputs = {}, .kind = {}};
  ForEach(given.content, [&](const ProtobufField& field) {
    if (field.number == node::kInput) read.inputs.push_back(field.content);
    if (field.number == node::kOutput) read.outputs.push_back(field.content);
    if (field.number == node::kOperator) read.kind = field.content;
    if (field.number == node::kAttribute) {
      const std::string_view name = TextIn(field.content, kAttributeName);
      read.plain = read.plain && (name == "dtype" || name == "seed");
    }
  });
  return read;
}

// Weights stand in the model itself; what points to another file is not followed.
void CheckWeights(std::string_view weights) {
  ForEach(weights, [](const ProtobufField& field) {
    if (field.number == tensor::kOutside || (field.number == tensor::kPlace && field.value != 0))
      throw Wrong{"ihr Modell besteht aus mehreren Dateien"};
  });
}

void AddNode(Graph& read, Node found) {
  if (found.outputs.empty() || found.outputs.front().empty()) return;
  if (found.kind == kDurationsOf && found.inputs.size() == 1 && !found.inputs.front().empty())
    read.durations.push_back(std::move(found));
  else if (found.kind == kNoiseOf && found.plain && found.inputs.size() == 1 &&
           read.noises.size() < kMostNoises)
    read.noises.push_back(std::move(found));
}

Graph ReadGraph(std::string_view content) {
  Graph read;
  ForEach(content, [&](const ProtobufField& field) {
    if (field.number == graph::kNode) AddNode(read, ReadNode(field));
    if (field.number == graph::kInitializer) CheckWeights(field.content);
    if (field.number == graph::kInput) read.inputs.push_back(TextIn(field.content, kValueName));
    if (field.number == graph::kOutput) read.outputs.push_back(TextIn(field.content, kValueName));
  });
  return read;
}

bool Has(const std::vector<std::string_view>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

void CheckVoice(const Graph& read) {
  for (const std::string_view name : {"input", "input_lengths", "scales"}) {
    if (!Has(read.inputs, name)) throw Wrong{kForeign};
  }
  for (const std::string_view name : read.inputs) {
    if (name != "input" && name != "input_lengths" && name != "scales" && name != "sid")
      throw Wrong{kForeign};
  }
  if (!Has(read.outputs, "output")) throw Wrong{kForeign};
}

std::string MakeNode(std::string_view kind, const std::vector<std::string>& inputs, std::string_view output) {
  std::string content;
  for (const std::string& input : inputs) content += ProtobufBytes(node::kInput, input);
  content += ProtobufBytes(node::kOutput, output);
  content += ProtobufBytes(node::kName, std::string("lorelin ").append(output));
  content += ProtobufBytes(node::kOperator, kind);
  return ProtobufBytes(graph::kNode, content);
}

template <typename Number>
std::string LittleEndian(Number number) {
  static_assert(std::endian::native == std::endian::little);
  const auto bytes = std::bit_cast<std::array<char, sizeof number>>(number);
  return {bytes.begin(), bytes.end()};
}

std::string MakeNumber(std::string_view name, std::int64_t number) {
  return ProtobufBytes(graph::kInitializer, ProtobufNumber(tensor::kType, tensor::kInt64) +
                                                ProtobufBytes(tensor::kName, name) +
                                                ProtobufBytes(tensor::kBytes, LittleEndian(number)));
}

// Normally distributed by the method of Box and Muller, the same numbers on every machine and in every run.
std::string NoiseBytes() {
  std::mt19937 random(20261122);
  const auto uniform = [&] { return (static_cast<double>(random()) + 1) / 4294967297.0; };
  std::string bytes;
  bytes.reserve(kNoiseLength * sizeof(float));
  for (std::size_t i = 0; i < kNoiseLength; ++i) {
    const double length = std::sqrt(-2 * std::log(uniform()));
    bytes += LittleEndian(static_cast<float>(length * std::cos(2 * std::numbers::pi * uniform())));
  }
  return bytes;
}

const std::string kPrefix = "lorelin.noise.";

std::string MakeNoiseTable() {
  static const std::string numbers = NoiseBytes();
  const std::string table =
      ProtobufNumber(tensor::kDimension, kNoiseLength) + ProtobufNumber(tensor::kType, tensor::kFloat) +
      ProtobufBytes(tensor::kName, kPrefix + "table") + ProtobufBytes(tensor::kBytes, numbers);
  return ProtobufBytes(graph::kInitializer, table) + MakeNumber(kPrefix + "zero", 0) +
         MakeNumber(kPrefix + "one", 1) + MakeNumber(kPrefix + "length", kNoiseLength);
}

// The n-th noise: as many numbers of the table as the tensor has, from another place on, in its shape.
std::string MakeNoise(std::size_t number, const Node& replaced) {
  const std::string like(replaced.inputs.front());
  const std::string own = kPrefix + std::to_string(number) + ".";
  const auto start = static_cast<std::int64_t>(number * kNoiseLength / kMostNoises);
  return MakeNumber(own + "start", start) + MakeNode("Size", {like}, own + "size") +
         MakeNode("Range", {kPrefix + "zero", own + "size", kPrefix + "one"}, own + "range") +
         MakeNode("Add", {own + "range", own + "start"}, own + "moved") +
         MakeNode("Mod", {own + "moved", kPrefix + "length"}, own + "places") +
         MakeNode("Gather", {kPrefix + "table", own + "places"}, own + "numbers") +
         MakeNode("Shape", {like}, own + "shape") +
         MakeNode("Reshape", {own + "numbers", own + "shape"}, replaced.outputs.front());
}

bool IsReplaced(const ProtobufField& field, const Graph& read) {
  return std::any_of(read.noises.begin(), read.noises.end(),
                     [&](const Node& noise) { return noise.whole.data() == field.whole.data(); });
}

// The graph with what is added to it, and without the sources of noise.
void AppendGraph(std::string& bytes, std::string_view content, const Graph& read, const std::string& added) {
  std::size_t size = content.size() + added.size();
  for (const Node& noise : read.noises) size -= noise.whole.size();
  bytes += ProtobufHead(model::kGraph, size);
  ForEach(content, [&](const ProtobufField& field) {
    if (!IsReplaced(field, read)) bytes.append(field.whole);
  });
  bytes += added;
}

struct Model {
  std::string_view graph;
  std::uint64_t operators = 0;  // version of the usual ones
};

Model ReadModel(std::string_view bytes) {
  Model read;
  std::size_t graphs = 0;
  ForEach(bytes, [&](const ProtobufField& field) {
    if (field.number == model::kGraph) {
      read.graph = field.content;
      ++graphs;
    }
    if (field.number != model::kOperators || !TextIn(field.content, model::kOperatorDomain).empty()) return;
    ForEach(field.content, [&](const ProtobufField& inner) {
      if (inner.number == model::kOperatorVersion) read.operators = inner.value;
    });
  });
  if (graphs != 1) throw Wrong{kDamaged};
  return read;
}

std::string SteadyNoise(const Graph& read) {
  if (read.noises.empty()) return {};
  std::string added = MakeNoiseTable();
  for (std::size_t i = 0; i < read.noises.size(); ++i) added += MakeNoise(i, read.noises[i]);
  return added;
}

PatchedModel Patch(std::string_view bytes) {
  const Model read = ReadModel(bytes);
  Graph found = ReadGraph(read.graph);
  CheckVoice(found);
  if (read.operators < kOldestOperators || read.operators >= kNewestOperators) found.noises.clear();
  std::string added = SteadyNoise(found);
  PatchedModel patched{.bytes = {}, .durations = {}, .hasSpeakers = Has(found.inputs, "sid")};
  if (found.durations.size() == 1) {
    patched.durations = found.durations.front().inputs.front();
    if (!Has(found.outputs, patched.durations))
      added += ProtobufBytes(graph::kOutput, ProtobufBytes(kValueName, patched.durations));
  }
  patched.bytes.reserve(bytes.size() + added.size() + 32);
  ForEach(bytes, [&](const ProtobufField& field) {
    if (field.number != model::kGraph) patched.bytes.append(field.whole);
  });
  AppendGraph(patched.bytes, read.graph, found, added);
  return patched;
}

}  // namespace

std::optional<PatchedModel> PatchModel(std::string_view model, std::string& problem) {
  try {
    return Patch(model);
  } catch (const Wrong& wrong) {
    problem = wrong.text;
    return std::nullopt;
  }
}

}  // namespace lorelin::engine

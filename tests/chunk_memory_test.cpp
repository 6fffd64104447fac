#include "repora/model/chunk_memory.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "tests/run_fixture.h"

namespace repora::test {
namespace {

// A part whose bytes all have one value of its own.
struct Filled {
  ChunkMemory::Area area;
  ChunkMemory::Part part;
  std::size_t size;
  unsigned char fill;
};

class Parts {
 public:
  void Take(ChunkMemory::Area area, std::size_t size) {
    auto const part = ChunkMemory::Take(area, size);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(part.memory) % 8, 0U);
    parts_.push_back({area, part, size, ++next_fill_});
    Fill(parts_.back());
  }
  void Grow(std::size_t index, std::size_t size) {
    auto& part = parts_[index];
    if (!ChunkMemory::Grow(part.area, part.part, part.size, part.size + size)) return;
    ExpectFilled(part);
    part.size += size;
    Fill(part);
  }
  void Give(std::size_t index) {
    ExpectFilled(parts_[index]);
    ChunkMemory::Give(parts_[index].area, parts_[index].part, parts_[index].size);
    parts_.erase(parts_.begin() + static_cast<std::ptrdiff_t>(index));
  }
  void GiveAll() {
    while (!parts_.empty()) Give(parts_.size() - 1);
  }
  std::size_t size() const { return parts_.size(); }

 private:
  static void Fill(Filled const& part) { std::memset(part.part.memory, part.fill, part.size); }
  static void ExpectFilled(Filled const& part) {
    auto const* const bytes = static_cast<unsigned char const*>(part.part.memory);
    EXPECT_TRUE(std::all_of(bytes, bytes + part.size,
                            [&](unsigned char byte) { return byte == part.fill; }));
  }

  std::vector<Filled> parts_;
  unsigned char next_fill_ = 0;
};

// Parts of all sizes come, grow and go, in and out of scopes; no two ever share a byte.
TEST(ChunkMemory, PartsNeverOverlap) {
  std::mt19937 random(11);
  Parts parts;
  for (int scope = 0; scope < 4; ++scope) {
    ChunkMemory::Scope const outer;
    for (int i = 0; i < 5000; ++i) {
      ChunkMemory::Scope const inner;
      auto const area = static_cast<ChunkMemory::Area>(random() % 3);
      parts.Take(area, i % 50 == 0 ? random() % 5000 + 1 : random() % 200 + 1);
      parts.Grow(parts.size() - 1 - random() % std::min<std::size_t>(parts.size(), 3),
                 random() % 100 + 1);
      if (random() % 4 != 0) parts.Give(parts.size() - 1 - random() % parts.size() / 2);
    }
    parts.Take(ChunkMemory::kItems, 40);
  }
  parts.Take(ChunkMemory::kItems, 40);
  parts.GiveAll();
}

TEST(ChunkMemory, PartsMayBeGivenBackWhileAnotherThreadTakesOthers) {
  Parts taken_here;
  ChunkMemory::Scope const scope;
  for (int i = 0; i < 3000; ++i) taken_here.Take(ChunkMemory::kContents, 48);
  std::thread other([&] { taken_here.GiveAll(); });
  Parts others;
  for (int i = 0; i < 3000; ++i) others.Take(ChunkMemory::kContents, 48);
  other.join();
  others.GiveAll();
}

// What a run made lives on in the model when the run and its thread have ended.
TEST(ChunkMemory, AModelOutlivesTheThreadOfItsRun) {
  auto job = std::make_unique<Job>();
  std::thread([&] {
    job->Run([](REPProcessor& processor) {
      for (int i = 0; i < 2000; ++i) {
        auto const text = "TABLE_" + std::to_string(i);
        REPName const name{std::string_view(text)};
        MOXActionSummaryItem* table = nullptr;
        processor.AddItem(processor.GetRoot(), ORVTypes::oEntity, &name, table);
        table->SetProperty(ORVTypes::pDBOwner, QELValue(text));
      }
    });
  }).join();
  auto const& tables = *job->model.GetTypeIndex()->ObjectsOfType(ORVTypes::oEntity);
  ASSERT_EQ(tables.size(), 2000U);
  for (std::size_t i = 0; i < tables.size(); ++i)
    EXPECT_EQ(job->model.PropertiesOf(tables[i])->Find(ORVTypes::pDBOwner)->String(),
              "TABLE_" + std::to_string(i));
  job.reset();
}

}  // namespace
}  // namespace repora::test

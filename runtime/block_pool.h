#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <type_traits>
#include <utility>

namespace rotavel {

// Hands out equal-sized blocks for plain records, so that making one does not call the general
// allocator. Blocks given back are reused first. Not thread-safe; runs no destructors.
template <typename Record>
class BlockPool {
    static_assert(std::is_trivially_destructible_v<Record>);

  public:
    BlockPool() = default;
    BlockPool(const BlockPool&) = delete;
    BlockPool& operator=(const BlockPool&) = delete;
    ~BlockPool() { Release(); }

    // An uninitialised block, or null when memory is short.
    Record* Take() {
        if (freeBlocks != nullptr) {
            Block* const block = freeBlocks;
            freeBlocks = block->next;
            return &block->record;
        }
        if (used == capacity && !Grow()) {
            return nullptr;
        }
        return &chunks->Blocks()[used++].record;
    }

    // Gives a block back; it must come from this pool.
    void Give(Record* record) {
        Block* const block = reinterpret_cast<Block*>(record);
        block->next = freeBlocks;
        freeBlocks = block;
    }

    void Swap(BlockPool& other) {
        std::swap(chunks, other.chunks);
        std::swap(freeBlocks, other.freeBlocks);
        std::swap(used, other.used);
        std::swap(capacity, other.capacity);
    }

    // Frees every block at once.
    void Release() {
        while (chunks != nullptr) {
            Chunk* const following = chunks->next;
            std::free(chunks);
            chunks = following;
        }
        freeBlocks = nullptr;
        used = 0;
        capacity = 0;
    }

  private:
    union Block {
        Block* next;
        Record record;
    };
    struct alignas(Block) Chunk {
        Chunk* next;

        Block* Blocks() { return reinterpret_cast<Block*>(this + 1); }
    };

    static constexpr std::size_t FirstCapacity = 64;
    static constexpr std::size_t LargestCapacity = 65536;

    // Chunks double, so that a few records cost little and a million cost few allocations.
    bool Grow() {
        const std::size_t blocks = std::clamp(capacity * 2, FirstCapacity, LargestCapacity);
        auto* const chunk =
            static_cast<Chunk*>(std::malloc(sizeof(Chunk) + blocks * sizeof(Block)));
        if (chunk == nullptr) {
            return false;
        }
        chunk->next = chunks;
        chunks = chunk;
        used = 0;
        capacity = blocks;
        return true;
    }

    Chunk* chunks = nullptr;
    Block* freeBlocks = nullptr;
    std::size_t used = 0;
    std::size_t capacity = 0;
};

}  // namespace rotavel

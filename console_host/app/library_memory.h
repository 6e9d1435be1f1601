#pragma once

#include <cstddef>
#include <cstdint>

/// Memory of the image library for the reading or writing of one image. Whatever the library has
/// not released goes with it, so the library may be left at any point. New blocks are cleared.
class LibraryMemory
{
public:
    enum class WhenExhausted
    {
        GiveNull,
        Throw ///< std::bad_alloc
    };

    /// No single block may be larger than `largestBlock` bytes.
    LibraryMemory(std::uint64_t largestBlock, WhenExhausted whenExhausted);
    LibraryMemory(const LibraryMemory&) = delete;
    LibraryMemory& operator=(const LibraryMemory&) = delete;
    ~LibraryMemory();

    [[nodiscard]] void* Allocate(std::size_t size);

    /// `block` may be null. What a block grows by is not cleared.
    [[nodiscard]] void* Reallocate(void* block, std::size_t size);

    static void Free(void* block) noexcept;

    /// The library's allocation functions take no context. While one of these lives, they use this
    /// memory on this thread.
    class Use
    {
    public:
        explicit Use(LibraryMemory& memory);
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;
        ~Use();
    };

    static LibraryMemory& Current();

private:
    struct alignas(std::max_align_t) Block
    {
        Block* previous;
        Block* next;
    };

    [[nodiscard]] Block* Fail() const;
    void* Link(Block* block);
    static void Unlink(Block* block) noexcept;

    std::uint64_t m_largestBlock;
    WhenExhausted m_whenExhausted;
    Block m_blocks{&m_blocks, &m_blocks}; ///< a ring through all blocks
};

#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

/// What comes from outside is held to these numbers before memory is asked for.
namespace t_common::limit
{
constexpr std::size_t KiB = 1024;
constexpr std::size_t MiB = 1024 * KiB;

// HTTP
constexpr std::size_t httpHead = 64 * KiB;       // a board's head has a few hundred bytes
constexpr std::size_t httpFields = 200;          // as above: a dozen fields
constexpr std::size_t httpInterim = 100;         // "100 Continue" and the like before the answer
constexpr std::uint64_t httpBody = 16 * MiB;     // the longest answer, a dewarp map in Base64, has less than 6 MiB
constexpr std::uint64_t httpFile = 512 * MiB;    // raw captures of the largest sensors have a quarter of it
constexpr std::chrono::seconds transferIdle{60}; // a board may write flash for that long without a byte
constexpr std::chrono::seconds pageFileFirst{2}; // of a file that a page shows: what any command's answer has
constexpr std::chrono::seconds pageFileNext{10}; // as above, once begun: a slow board is no dead one

// Serial line
constexpr std::chrono::seconds serialStall{2}; // a line without flow control takes ten thousand bytes in each of them

// JSON
constexpr std::size_t jsonElements = 1'000'000; // commas and brackets; an element costs 100 bytes in memory
constexpr std::size_t jsonDepth = 32;           // indented text grows with depth, commands need less than ten
constexpr std::size_t jsonExcerpt = 80;         // what a failure text shows of a text that can't be parsed
constexpr std::size_t jsonFile = 16 * MiB;      // a board's 3A file has some ten KiB
constexpr std::size_t jsonFileValues = 200'000; // each is three items of the tree
constexpr std::size_t jsonFileDepth = 256;      // the tree is built and destroyed recursively

// Texts
constexpr std::size_t statusBarText = 4 * KiB; // one line on the screen
constexpr std::size_t reportText = 1 * MiB;    // the console lays out every line of it
constexpr std::size_t cellText = 1 * KiB;      // a cell of a tree is laid out whole, however little of it is seen
constexpr std::size_t listElements = 10'000;   // files, modules, registers, versions
constexpr std::size_t menuEntries = 1000;      // each is a submenu with its entries, made anew whenever the menu opens
constexpr std::size_t listText = 4 * KiB;      // one name in a list
constexpr std::size_t fileName = 255;          // of the usual file systems

// XML
constexpr std::size_t xmlBytes = 64 * MiB;  // register descriptions have a few MiB
constexpr std::size_t xmlDepth = 256;       // the document tree is built and destroyed recursively
constexpr std::size_t xmlNodes = 2'000'000; // a node costs some hundred bytes in memory
constexpr int xmlItems = 10'000;            // of a tree, made unasked; those of more elements are made when opened
constexpr int chipCounterMaximum = 64;      // inputs and cores; the largest chips have 8
constexpr std::size_t chipHead = 64 * KiB;  // of a chip file, up to its first element
constexpr std::size_t chipPages = 1000;     // the catalogue has fewer than a hundred
constexpr std::size_t configFile = 4 * MiB; // the program's own files have a few KiB
constexpr int windowSide = 16384;           // of a stored window size; a larger one has no painting surface

// Pictures
constexpr std::uint64_t picture = 512 * MiB;   // decoded, 4 bytes a pixel; the largest sensors have a quarter of it
constexpr std::uint32_t dewarpMapSide = 16384; // of a map of the user's; its grid then has 4 MiB
constexpr std::uint32_t yuvSide = 32767;       // the conversion counts in 16 bits, and QPainter draws no wider

// Calibration of lenses
constexpr std::size_t yamlFile = 4 * MiB; // with all points of a hundred pictures it has less than 1 MiB
constexpr std::size_t yamlDepth = 64;     // it is parsed recursively; a calibration needs 3
constexpr int patternSide = 100;          // corners in a row; boards have about ten

// Auto tables
constexpr std::size_t tableColumns = 256;   // every column is a header on the screen
constexpr std::size_t tableCells = 100'000; // every cell is an item in memory
} // namespace t_common::limit

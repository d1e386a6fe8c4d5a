#include "Scene.h"

#include "Glyphs.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string_view>

namespace {

constexpr int width = Scene::columns * 8;
constexpr int height = Scene::rows * 8;

/// Colour numbers 0 to 3. On a colour screen the row's palette says what they look like; on a grey one 0 is dark.
using Picture = std::array<std::array<std::uint8_t, width>, height>;

struct Colour {
    int red, green, blue;
};
using Palettes = Colour[8][4];

constexpr Colour ink{12, 14, 20}, paper{244, 241, 235}, ember{255, 178, 125}, gold{255, 214, 130};
constexpr Colour farHill{52, 40, 78}, nearHill{22, 20, 40};

// The sky goes from ink overhead to the last light over the hills; each palette ends with the colour that the next
// begins with, so that the bands meet without an edge.
constexpr std::array<Colour, 9> sky{{{12, 14, 20},
                                     {18, 21, 40},
                                     {26, 28, 58},
                                     {38, 36, 78},
                                     {58, 46, 96},
                                     {92, 60, 108},
                                     {140, 78, 110},
                                     {196, 110, 104},
                                     {240, 160, 112}}};

constexpr Palettes background{
    {sky[0], sky[1], sky[2], paper}, // rows 0 to 2: night, moon, stars
    {sky[2], sky[3], sky[4], paper}, // rows 3 to 5
    {sky[4], sky[5], sky[6], farHill}, // rows 6 and 7: dusk, the first peaks
    {sky[6], sky[7], nearHill, farHill}, // row 8
    {sky[7], sky[8], nearHill, farHill}, // row 9
    {nearHill, sky[8], farHill, gold}, // row 10: the shore with its windows
    {{24, 24, 46}, {46, 40, 74}, {112, 70, 100}, {232, 160, 120}}, // water, near the shore
    {ink, {26, 28, 52}, ember, paper}, // water in front, bar
};

constexpr std::array<std::uint8_t, Scene::rows> rowPalettes{0, 0, 0, 1, 1, 1, 2, 2, 3, 4, 5, 6, 6, 6, 7, 7, 7, 7};

constexpr Palettes objects{
    {ink, {196, 92, 58}, ember, {255, 244, 214}}, // lanterns in ember,
    {ink, {170, 64, 92}, {250, 140, 140}, {255, 236, 226}}, // rose
    {ink, {176, 116, 44}, gold, {255, 250, 226}}, // and gold
    {ink, {120, 66, 84}, {190, 116, 100}, {232, 168, 124}}, // what the water shows of them
    {ink, {92, 92, 140}, {170, 170, 200}, paper}, // stars
};

constexpr int bayer[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};

/// Whether a pixel of a mix of two colours shows the second one; `share` from 0 to 1.
bool dithered(int x, int y, double share)
{
    return share * 16 > bayer[y & 3][x & 3] + 0.5;
}

int gradient(int x, int y, int top, int bottom, int steps)
{
    const double place = double(y - top) / (bottom - top) * steps;
    const int step = int(place);
    return step + (dithered(x, y, place - step) ? 1 : 0);
}

void drawSky(Picture &picture)
{
    for (int y = 0; y < Scene::waterLine; ++y) {
        for (int x = 0; x < width; ++x) {
            const int colour = y < 24 ? gradient(x, y, 0, 24, 2)
                : y < 48              ? gradient(x, y, 24, 48, 2)
                : y < 64              ? gradient(x, y, 48, 64, 2)
                : y < 72              ? gradient(x, y, 64, 72, 1)
                : y < 80              ? gradient(x, y, 72, 80, 1)
                                      : 1;
            picture[y][x] = std::uint8_t(colour);
        }
    }
}

void drawMoonAndStars(Picture &picture)
{
    constexpr int stars[][2] = {{9, 6},   {30, 14}, {47, 4},  {62, 21}, {20, 29}, {78, 9},
                                {92, 17}, {104, 5}, {150, 7}, {88, 33}, {54, 37}, {152, 38}};
    for (const auto &[x, y] : stars)
        picture[y][x] = 3;
    for (int y = 0; y < 24; ++y) {
        for (int x = 110; x < 150; ++x) {
            const double fromMoon = std::hypot(x - 128.5, y - 13), fromShadow = std::hypot(x - 124.5, y - 10.5);
            if (fromMoon < 8 && fromShadow > 7.2) picture[y][x] = 3;
        }
    }
}

/// Heights above the water, in pixels. They repeat every 160 pixels, where the screen ends.
double farRidge(int x)
{
    const double turn = x * 2 * M_PI / 160;
    return 22 + 7 * std::sin(turn + 0.6) + 4 * std::sin(2 * turn + 2.1) + 2 * std::sin(5 * turn);
}
double nearRidge(int x)
{
    const double turn = x * 2 * M_PI / 160;
    return 10 + 5 * std::sin(turn + 3.6) + 3 * std::sin(3 * turn + 0.4) + std::sin(7 * turn + 1);
}

void drawHills(Picture &picture)
{
    for (int y = 48; y < Scene::waterLine; ++y) {
        const bool shore = y / 8 == 10;
        for (int x = 0; x < width; ++x) {
            const int above = Scene::waterLine - y;
            if (above <= nearRidge(x))
                picture[y][x] = shore ? 0 : 2;
            else if (above <= farRidge(x))
                picture[y][x] = shore ? 2 : 3;
        }
    }
    constexpr int windows[] = {22, 27, 34, 70, 75, 81, 84, 118, 139, 143};
    for (const int x : windows) {
        const int y = Scene::waterLine - 3 - (x % 3);
        picture[y][x] = picture[y][x + 1] = picture[y + 1][x] = picture[y + 1][x + 1] = 3;
    }
}

/// A short stroke of light on the water. The pattern repeats every 64 pixels, so that few tiles hold it.
void drawStroke(Picture &picture, int x, int y, int length, int colour)
{
    for (int start = x; start < width + 64; start += 64) {
        for (int i = 0; i < length; ++i)
            picture[y][(start + i) % width] = std::uint8_t(colour);
    }
}

void drawWater(Picture &picture)
{
    for (int y = Scene::waterLine; y < 112; ++y) {
        for (int x = 0; x < width; ++x)
            picture[y][x] = dithered(x, y, 1 - (y - Scene::waterLine) / 24.0) ? 1 : 0;
    }
    for (int y = 112; y < Scene::barLine; ++y) {
        for (int x = 0; x < width; ++x)
            picture[y][x] = dithered(x, y, 0.75 - (y - 112) / 20.0) ? 1 : 0;
    }
    constexpr int strokes[][4] = {{2, 88, 26, 2},  {34, 88, 22, 2}, {10, 90, 12, 3}, {40, 90, 16, 2}, {0, 92, 8, 2},
                                  {24, 93, 14, 2}, {50, 94, 8, 3},  {14, 96, 10, 2}, {38, 98, 7, 2},  {4, 100, 6, 2},
                                  {52, 101, 9, 2}, {26, 104, 8, 2}, {44, 107, 5, 2}, {10, 109, 6, 2}, {30, 114, 5, 1},
                                  {54, 116, 7, 1}, {8, 118, 7, 1},  {40, 121, 6, 1}, {20, 124, 8, 1}};
    for (const auto &[x, y, length, colour] : strokes)
        drawStroke(picture, x, y, length, colour);
}

void drawGlyph(Picture &picture, int x, int y, char letter)
{
    const auto glyph = std::ranges::find(glyphs, letter, &Glyph::letter);
    if (glyph == std::end(glyphs)) return;
    for (int line = 0; line < 7; ++line) {
        for (int column = 0; column < 5; ++column)
            if (glyph->lines[line][column] == '#') picture[y + line][x + column] = 3;
    }
}

void drawText(Picture &picture, int x, int y, std::string_view text)
{
    for (const char letter : text) {
        drawGlyph(picture, x, y, letter);
        x += letter == 'i' ? 4 : 6;
    }
}

constexpr int textLine = 4; ///< first line of the letters, counted from the top of the bar

void drawBar(Picture &picture)
{
    for (int y = Scene::barLine; y < height; ++y)
        picture[y].fill(0);
    for (int x = 0; x < 160; ++x) {
        const double fromEdge = std::min(x, 159 - x) / 48.0;
        picture[Scene::barLine - 1][x] = dithered(x, 1, fromEdge) ? 2 : 0;
    }
    drawText(picture, 6, Scene::barLine + textLine, "Lanterns");
    drawText(picture, 102, Scene::barLine + textLine, "Evening");
}

constexpr std::array<std::string_view, 16> skyLanternShape{
    "..1111..", ".122221.", "12222221", "12222221", "12222221", "12233221", "12233221", "12333321",
    "12333321", ".133331.", ".133331.", "..1331..", "..1111..", "........", "...33...", "...22..."};
constexpr std::array<std::string_view, 16> reflectionShape{
    "...22...", "........", "..1221..", "........", ".122221.", "..2332..", "........", ".122321.",
    "........", "..2222..", ".1.22...", "........", "...12...", "........", "..1.....", "........"};
constexpr std::array<std::string_view, 16> ownLanternShape{
    ".......11.......", ".......11.......", ".....111111.....", "...1122222211...",
    "..122222222221..", ".12222233222221.", ".11111333311111.", ".12223333332221.",
    ".12223333332221.", ".11113333331111.", ".12223333332221.", "..122233332221..",
    "...1122222211...", ".....111111.....", ".......22.......", "......2..2......"};
constexpr std::array<std::string_view, 16> ownReflectionShape{
    "......2222......", "................", "...1122222211...", "................",
    "..112222222211..", "...1223333221...", "................", "..112333333211..",
    "................", "....12233221....", "..11.222222.11..", "................",
    ".....112211.....", "................", "....1..11..1....", "................"};
constexpr std::array<std::string_view, 16> starShape{
    "...2....", "...3....", ".233332.", "...3....", "...2....", "........", "........", "........",
    "........", "........", "........", "........", "........", "........", "........", "........"};

/// A tile: 8 lines of two bytes, the low and the high bits of the eight colour numbers.
template <typename PixelAt>
Bytes tile(PixelAt pixelAt)
{
    Bytes bytes;
    for (int y = 0; y < 8; ++y) {
        int low = 0, high = 0;
        for (int x = 0; x < 8; ++x) {
            const int colour = pixelAt(x, y);
            low |= (colour & 1) << (7 - x);
            high |= (colour >> 1) << (7 - x);
        }
        bytes.push_back(std::uint8_t(low));
        bytes.push_back(std::uint8_t(high));
    }
    return bytes;
}

void append(Bytes &tiles, const Bytes &more)
{
    tiles.insert(tiles.end(), more.begin(), more.end());
}

void appendShape(Bytes &tiles, const std::array<std::string_view, 16> &shape, int left)
{
    for (const int top : {0, 8})
        append(tiles, tile([&](int x, int y) { return std::max(0, shape[top + y][left + x] - '0'); }));
}

void appendDigits(Bytes &tiles)
{
    for (char digit = '0'; digit <= '9'; ++digit) {
        Picture scratch{};
        drawGlyph(scratch, 1, textLine, digit);
        for (const int top : {0, 8})
            append(tiles, tile([&](int x, int y) { return scratch[top + y][x]; }));
    }
}

Bytes encoded(const Palettes &palettes)
{
    Bytes bytes;
    for (const auto &palette : palettes) {
        for (const auto &[red, green, blue] : palette) {
            const int colour = red >> 3 | (green >> 3) << 5 | (blue >> 3) << 10;
            bytes.push_back(std::uint8_t(colour));
            bytes.push_back(std::uint8_t(colour >> 8));
        }
    }
    return bytes;
}

void appendBackground(Scene &scene, const Picture &picture)
{
    std::map<Bytes, int> known;
    for (int row = 0; row < Scene::rows; ++row) {
        for (int column = 0; column < Scene::columns; ++column) {
            const Bytes one = tile([&](int x, int y) { return picture[row * 8 + y][column * 8 + x]; });
            const auto [place, isNew] = known.emplace(one, int(scene.tiles.size() / 16));
            if (isNew) append(scene.tiles, one);
            scene.map[row][column] = std::uint8_t(place->second);
        }
    }
}

}

Scene drawScene()
{
    Picture picture{};
    drawSky(picture);
    drawMoonAndStars(picture);
    drawHills(picture);
    drawWater(picture);
    drawBar(picture);

    Scene scene;
    appendShape(scene.tiles, skyLanternShape, 0);
    appendShape(scene.tiles, reflectionShape, 0);
    appendShape(scene.tiles, ownLanternShape, 0);
    appendShape(scene.tiles, ownLanternShape, 8);
    appendShape(scene.tiles, ownReflectionShape, 0);
    appendShape(scene.tiles, ownReflectionShape, 8);
    appendShape(scene.tiles, starShape, 0);
    appendDigits(scene.tiles);
    appendBackground(scene, picture);
    scene.palettes = rowPalettes;
    scene.backgroundPalettes = encoded(background);
    scene.objectPalettes = encoded(objects);
    return scene;
}

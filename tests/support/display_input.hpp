/// A user at the screen: real input through the XTEST extension, and what the screen shows.
///
/// Everything here goes over a connection of its own, as from another program, so it is seen by
/// the program under test as a user's doing. Waiting ends with the awaited message or state.
#pragma once

#include "toolkit/message_record.hpp"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace display_input {

struct Point {
    int x = 0;  ///< pixels, of the screen
    int y = 0;
};

struct Rectangle {
    int x = 0;  ///< pixels, of the screen
    int y = 0;
    int width = 0;
    int height = 0;
};

inline constexpr int deadline_ms = 5000;  ///< far beyond what anything takes; no wait uses it up

// Pointer and keyboard

void move_to(Point to);
void press(int button = 1);
void release(int button = 1);
void click(Point at, int button = 1);
/// Moves there in `steps` equal moves.
void drag(Point from, Point to, int steps, int button = 1);
/// Presses and releases the keys named in X's way: "a", "Return", "shift+Tab", "ctrl+c".
void key(const std::string& name);
/// Types letters, digits and other characters of the keyboard.
void type(const std::string& text);

// Windows, by their title

/// Where the content of the window of this title is, once it is shown; fails the test when it
/// isn't within the deadline.
Rectangle window_titled(const std::string& title);
/// The same with what the window manager puts around it.
Rectangle frame_of(const std::string& title);
bool is_shown(const std::string& title);
/// Title of the topmost window at a point; empty where there is none.
std::string title_at(Point at);
/// As the window manager does when its close button is used.
void close_window(const std::string& title);
/// Cuts the connection of the program that owns the window, as a server that ends does.
void kill_client(const std::string& title);
/// As another program would: asks for a new size of the content.
void resize_window(const std::string& title, int width, int height);
/// Covers a rectangle of the screen with a window of its own, then takes that away again.
void cover_and_uncover(Rectangle area);
/// Size hints: minimum and maximum size, 0 where there is none.
struct SizeLimits {
    int min_width = 0, min_height = 0, max_width = 0, max_height = 0;
};
SizeLimits size_limits(const std::string& title);
/// A property of 32-bit words.
std::vector<unsigned long> property(const std::string& title, const char* name);
/// Lets everything that was sent reach the server.
void settle();

// The screen

/// Colour of a pixel of the screen as 0xrrggbb.
unsigned pixel(Point at);
/// All of a rectangle, by rows.
std::vector<unsigned> pixels(Rectangle area);

// Messages

/// Polls until a message of this type comes, dropping others; fails the test at the deadline.
tesserakit::MessageRecord wait_for(int type);
/// Polls until `done`, and answers the types of all messages on the way; fails the test when that
/// takes too long.
std::vector<int> poll_until(const std::function<bool()>& done);
/// All messages that are there, and those that come of what was sent before this call, by way of
/// the window manager, too. Not those of timers.
struct Received {
    int type = 0;
    tesserakit::MessageRecord record;
};
std::vector<Received> drain();

}  // namespace display_input

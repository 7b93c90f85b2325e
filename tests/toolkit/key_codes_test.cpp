#include "toolkit/messages/key_codes.hpp"

#include <gtest/gtest.h>

#include <X11/XF86keysym.h>
#include <X11/keysym.h>

using namespace tesserakit;

namespace {

int plain(unsigned long key) { return yyMSInterpretKey(key, "", false, false); }
int shifted(unsigned long key) { return yyMSInterpretKey(key, "", true, false); }
int with_control(unsigned long key) { return yyMSInterpretKey(key, "", false, true); }

}  // namespace

TEST(KeyCodes, CharactersAreTheirKeysyms) {
    EXPECT_EQ(yyMSInterpretKey(XK_a, "a", false, false), 'a');
    EXPECT_EQ(yyMSInterpretKey(XK_A, "A", true, false), 'A');
    EXPECT_EQ(yyMSInterpretKey(XK_space, " ", false, false), 32);
    EXPECT_EQ(yyMSInterpretKey(XK_Udiaeresis, "\xdc", true, false), 0xdc);
}

TEST(KeyCodes, ControlLettersAreTheirControlCodes) {
    EXPECT_EQ(yyMSInterpretKey(XK_a, "\x01", false, true), 1);
    EXPECT_EQ(yyMSInterpretKey(XK_Z, "\x1a", true, true), 26);
    EXPECT_EQ(yyMSInterpretKey(XK_bracketleft, "\x1b", false, true), '[');
}

TEST(KeyCodes, CursorKeysAddAFifthOfShift) {
    EXPECT_EQ(plain(XK_Up), 258);
    EXPECT_EQ(plain(XK_KP_Down), 259);
    EXPECT_EQ(plain(XK_Right), 260);
    EXPECT_EQ(with_control(XK_Left), 269);
    EXPECT_EQ(shifted(XK_Up), plain(XK_Prior)) << "the codes of the two keys meet";
    EXPECT_EQ(shifted(XK_Down), plain(XK_Next));
}

TEST(KeyCodes, FunctionKeysAddTheWholeOfShift) {
    EXPECT_EQ(plain(XK_F1), 301);
    EXPECT_EQ(plain(XK_F20), 320);
    EXPECT_EQ(shifted(XK_F1), 321);
    EXPECT_EQ(with_control(XK_KP_F4), 344);
    EXPECT_EQ(yyMSInterpretKey(XK_F2, "", true, true), 342) << "Control goes before Shift";
    EXPECT_EQ(shifted(XK_Help), 335);
    EXPECT_EQ(plain(XK_Menu), 316);
}

TEST(KeyCodes, TabsGoBackwardWithShift) {
    EXPECT_EQ(plain(XK_Tab), 9);
    EXPECT_EQ(shifted(XK_Tab), 274);
    EXPECT_EQ(shifted(XK_KP_Tab), 274);
    EXPECT_EQ(plain(XK_ISO_Left_Tab), 274);
}

TEST(KeyCodes, EditingAndKeypadKeys) {
    EXPECT_EQ(plain(XK_BackSpace), 8);
    EXPECT_EQ(plain(XK_Return), 13);
    EXPECT_EQ(plain(XK_Escape), 27);
    EXPECT_EQ(plain(XK_Delete), 127);
    EXPECT_EQ(plain(XK_KP_Delete), 127);
    EXPECT_EQ(plain(XK_Find), 270);
    EXPECT_EQ(plain(XK_KP_End), 271);
    EXPECT_EQ(plain(XK_Insert), 272);
    EXPECT_EQ(plain(XK_KP_Enter), 296);
    EXPECT_EQ(plain(XK_KP_0), 280);
    EXPECT_EQ(plain(XK_KP_9), 289);
    EXPECT_EQ(plain(XK_KP_Subtract), 290);
    EXPECT_EQ(plain(XK_KP_Decimal), 291);
    EXPECT_EQ(plain(XK_KP_Add), 292);
    EXPECT_EQ(plain(XK_KP_Divide), 293);
    EXPECT_EQ(plain(XK_KP_Multiply), 294);
    EXPECT_EQ(plain(XK_KP_Equal), '=');
    EXPECT_EQ(plain(XK_Print), 300);
    EXPECT_EQ(plain(0x1000ff00), 273);
    EXPECT_EQ(plain(0x1000ff75), 274);
}

TEST(KeyCodes, ModifiersLocksAndUnknownKeysRaiseNothing) {
    for (const int key : {XK_Shift_L, XK_Control_R, XK_Caps_Lock, XK_Alt_L, XK_Hyper_R, XK_Num_Lock,
                          XK_Scroll_Lock, XK_ISO_Level3_Shift, XK_Pause})
        EXPECT_EQ(plain(static_cast<unsigned long>(key)), 0) << key;
    EXPECT_EQ(plain(XF86XK_AudioMute), 0);
}

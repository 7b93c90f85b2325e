#include "toolkit/base/mailbox.hpp"

#include <gtest/gtest.h>

using namespace tesserakit;

namespace {

class Mailbox : public testing::Test {
protected:
    void SetUp() override {
        clear_mailbox();
        load_message_defaults();
        bInWMessage = false;
        bInvalidField = false;
    }
};

Mail mail(int type, int value1) { return {.type = type, .value1 = value1}; }

}  // namespace

TEST_F(Mailbox, SwitchesStartAsTheApplicationFindsThem) {
    for (const int type : {1, 2, 3, 4, 7, 8, 9, 13, 14}) EXPECT_TRUE(message_enabled(type)) << type;
    for (const int type : {-1, 0, 5, 6, 10, 11, 12, 15, 16, 17})
        EXPECT_FALSE(message_enabled(type)) << type;
    set_message_enabled(MouseMove, true);
    set_message_enabled(17, true);
    EXPECT_TRUE(message_enabled(MouseMove));
    EXPECT_FALSE(message_enabled(17));
    load_message_defaults();
    EXPECT_FALSE(message_enabled(MouseMove));
}

TEST_F(Mailbox, InsideADispatchTheFirstEnabledMessageStaysAndTheOverflowIsReplaced) {
    bInWMessage = true;
    yyDGSendTesserakitMessage(nullptr, mail(PushButton, 1));
    yyDGSendTesserakitMessage(nullptr, mail(PushButton, 2));
    yyDGSendTesserakitMessage(nullptr, mail(PushButton, 3));
    EXPECT_EQ(pending_type(), PushButton);
    EXPECT_EQ(wXtMesg.value1, 1);
    EXPECT_EQ(take_overflow().value1, 3);
    EXPECT_EQ(take_overflow().type, 0);
}

TEST_F(Mailbox, OutsideADispatchTheLastMessageStands) {
    yyDGSendTesserakitMessage(nullptr, mail(PushButton, 1));
    yyDGSendTesserakitMessage(nullptr, mail(PushButton, 2));
    EXPECT_EQ(wXtMesg.value1, 2);
    EXPECT_EQ(take_overflow().type, 0);
}

TEST_F(Mailbox, ADisabledTypeIsOverwrittenAndPushesNothingOut) {
    bInWMessage = true;
    yyDGSendTesserakitMessage(nullptr, mail(FieldChanged, 1));
    EXPECT_EQ(pending_type(), 0);
    yyDGSendTesserakitMessage(nullptr, mail(PushButton, 2));
    EXPECT_EQ(wXtMesg.value1, 2);
    yyDGSendTesserakitMessage(nullptr, mail(PushButton, 3));
    yyDGSendTesserakitMessage(nullptr, mail(FieldChanged, 4));
    EXPECT_EQ(take_overflow().value1, 3);
}

TEST_F(Mailbox, AnInvalidFieldHoldsBackAllButResizeAndHelp) {
    bInvalidField = true;
    yyDGSendTesserakitMessage(nullptr, mail(PushButton, 1));
    EXPECT_EQ(wXtMesg.type, 0);
    yyDGSendTesserakitMessage(nullptr, mail(Resize, 640));
    EXPECT_EQ(wXtMesg.type, Resize);
    yyDGSendTesserakitMessage(nullptr, mail(PushButton, 9));
    EXPECT_EQ(wXtMesg, mail(PushButton, 9));
}

TEST_F(Mailbox, ASuppressedDialogPostsNothingButRemembersItsButton) {
    PostingState dialog{.suppression = 1};
    yyDGSendTesserakitMessage(&dialog, mail(FieldChanged, 5));
    yyDGSendTesserakitMessage(&dialog, {.type = PushButton, .value1 = 2, .value2 = 1034});
    EXPECT_EQ(wXtMesg.type, 0);
    EXPECT_EQ(dialog.exit_button, 2);
    EXPECT_EQ(dialog.exit_field, 1034);
}

TEST_F(Mailbox, WhatIsKeptComesInOrderWithDamageUnitedAndTheLastSize) {
    const Mail close = mail(CloseRequest, 0);
    keep({.type = ExposeMessage, .value1 = 20, .value2 = 10, .x = 30, .y = 40});
    keep({.type = Resize, .value1 = 640, .value2 = 480});
    keep(close);
    keep({.type = ExposeMessage, .value1 = 5, .value2 = 60, .x = 10, .y = 45});
    keep({.type = ExposeMessage, .value1 = 5, .value2 = 5, .value3 = 1, .value4 = 1001});
    keep({.type = Resize, .value1 = 320, .value2 = 200});
    keep({.type = Resize, .value1 = 100, .value2 = 90, .win = 2});
    keep(close);
    EXPECT_EQ(take_kept(),
              (Mail{.type = ExposeMessage, .value1 = 40, .value2 = 65, .x = 10, .y = 40}))
        << "10 to 50 and 40 to 105";
    EXPECT_EQ(take_kept(), (Mail{.type = Resize, .value1 = 320, .value2 = 200}));
    EXPECT_EQ(take_kept(), close);
    EXPECT_EQ(take_kept().value4, 1001) << "another place is damage of its own";
    EXPECT_TRUE(anything_kept());
    EXPECT_EQ(take_kept().win, 2);
    EXPECT_FALSE(anything_kept());
    EXPECT_EQ(take_kept().type, 0);
}

TEST_F(Mailbox, AWindowThatClosesTakesWhatIsKeptOfItAlong) {
    keep({.type = Resize, .value1 = 320, .win = 2});
    keep({.type = Resize, .value1 = 320, .win = 3});
    keep({.type = PushButton, .value1 = 1, .value3 = -1, .win = 2});
    drop_kept_of_window(2);
    EXPECT_EQ(take_kept().win, 3);
    EXPECT_EQ(take_kept().type, PushButton) << "dialog 2 isn't window 2";
    keep(mail(CloseRequest, 0));
    clear_mailbox();
    EXPECT_FALSE(anything_kept());
}

TEST_F(Mailbox, ALoopInsideADispatchLeavesTheMailboxAsItWas) {
    bInWMessage = true;
    yyDGSendTesserakitMessage(nullptr, mail(PushButton, 1));
    yyDGSendTesserakitMessage(nullptr, mail(PushButton, 2));
    {
        const MailboxScope loop;
        EXPECT_EQ(pending_type(), 0);
        yyDGSendTesserakitMessage(nullptr, mail(MenuSelect, 3));
        EXPECT_EQ(wXtMesg, mail(MenuSelect, 3));
        yyDGSendTesserakitMessage(nullptr, mail(MenuSelect, 4));
        EXPECT_EQ(wXtMesg2, mail(MenuSelect, 4));
    }
    EXPECT_EQ(wXtMesg, mail(PushButton, 1));
    EXPECT_EQ(wXtMesg2, mail(PushButton, 2));
    EXPECT_TRUE(bInWMessage);
    bInWMessage = false;
    {
        const MailboxScope loop;
        EXPECT_TRUE(bInWMessage);
    }
    EXPECT_FALSE(bInWMessage) << "opened by the application";
}

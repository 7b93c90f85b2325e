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

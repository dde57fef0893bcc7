#include "tests/rest/all-commands.h"

TEST_F(Commands, TravelAsTheWireSaysInEveryGeneration)
{
    all();
    EXPECT_TRUE(commandsSent == allCommands());
}

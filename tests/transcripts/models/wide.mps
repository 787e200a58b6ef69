* A line wider than 80 characters, whose last word is wrong, and one in the middle of many blanks.
NAME WIDE
ROWS
 N THE_COST_OF_ALL_THAT_IS_MADE
 L THE_LIMIT_OF_ALL_THAT_IS_MADE_IN_THE_NORTH
COLUMNS
 X THE_COST_OF_ALL_THAT_IS_MADE 1 THE_LIMIT_OF_ALL_THAT_IS_MADE_IN_THE_NORTH 1,5
 Y                                                                THE_COST_OF_ALL_THAT_IS_MADE                   12..5
RHS
 RHS THE_LIMIT_OF_ALL_THAT_IS_MADE_IN_THE_NORTH 4
ENDATA

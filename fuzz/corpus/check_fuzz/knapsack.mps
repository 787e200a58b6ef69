* Six things to take along or leave, worth as much as possible within a weight limit.
* The worth is negated, so that less is better; SLACK is the weight left over.
NAME          KNAPSACK
ROWS
 N  WORTH
 E  WEIGHT
COLUMNS
    ITEMS     'MARKER'                 'INTORG'
    TENT      WORTH            -60.0   WEIGHT            10.0
    STOVE     WORTH            -40.0   WEIGHT             4.5
    ROPE      WORTH            -25.0   WEIGHT             3.0
    LAMP      WORTH            -18.0   WEIGHT             1.5
    BOOK      WORTH             -5.0   WEIGHT             1.0
    BREAD     WORTH            -30.0   WEIGHT             2.0
    ITEMSEND  'MARKER'                 'INTEND'
    SLACK     WEIGHT             1.0
RHS
    RHS       WEIGHT            15.0
BOUNDS
 UP BOUND     TENT               1.0
 UP BOUND     STOVE              1.0
 UP BOUND     ROPE               1.0
 UP BOUND     LAMP               1.0
 UP BOUND     BOOK               1.0
 UP BOUND     BREAD              3.0
ENDATA

NAME          PLANT
* A plant with two machines.
* 
*  Hours are those of a week.
ROWS
 N  COST
 G  DEMAND
 L  HOURS
 E  BALANCE
 G  WINDOW
COLUMNS
    X1        COST                1.
    X1        DEMAND             2.5
    X3        HOURS            -0.25
    X3        COST       1234567.125
    X3        BALANCE             1.
    X3        WINDOW             10.
    X5        BALANCE            -1.
    INT       'MARKER'                 'INTORG'
    X2        HOURS               3.
    X4        WINDOW             -4.
    X4        COST               0.5
    INTEND    'MARKER'                 'INTEND'
RHS
    RHS       DEMAND             12.
    RHS       HOURS            40.75
    RHS       IDLE               -7.
    RHS       WINDOW             -2.
    RHS       UNUSED              1.
RANGES
    RANGE     WINDOW              8.
    RANGE     UNUSED              0.
BOUNDS
 LO BOUND     X1                 -5.
 UP BOUND     X1                  5.
 FX BOUND     X3                  3.
 LO BOUND     X4                  1.
 UP BOUND     X4          99999999.5
 FX BOUND     X6                  0.
ENDATA

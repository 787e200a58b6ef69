* Every kind of mistake that a file can make and still have rows, columns and elements.
* "quarvel check examples/mistakes.mps" lists them.
NAME          MISTAKES
COLUMNS
    EARLY     COST               1.0
RHS
    RHS       COST               1.0
RANGES
    RANGE     COST               1.0
BOUNDS
 UP BOUND     EARLY              1.0
ROWS
 N  COST
 L  LIMIT
 X  WRONGTYP
 L  TWO NAMES
 G  LIMIT
 E  TURNED
 G  EMPTYROW
COLUMNS
    A         COST               1.0   LIMIT
    A         COST               1,5
    A         COST               1.0   NOSUCH             2.0
    B         COST               2.0   LIMIT              1.0
    C         LIMIT              1.0   TURNED             1.0
    EMPTYCOL  COST               0.0
RHS
    RHS       LIMIT
    RHS       LIMIT            12..0   TURNED             3.0
    RHS       NOSUCH             1.0
RANGES
    RANGE     TURNED            -2.0   NOSUCH             1.0
    RANGE     LIMIT              ten
    RANGE     LIMIT
BOUNDS
 UP BOUND
 BV BOUND     A
 UP BOUND     A
 UP BOUND     A             1.0E+999
 UP BOUND     NOSUCH             1.0
 UP BOUND     B                 -1.0
ENDATA

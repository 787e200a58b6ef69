ROWS
 N  COST
COLUMNS
    X         COST                1.
RHS
BOUNDS
ENDATA

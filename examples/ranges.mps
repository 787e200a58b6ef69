* Every kind of range and every bound code.
* GRANGE is 4 to 10, LRANGE is 12 to 20, ERANGE is 7 to 9; FLOOR turns into a bound when the
* model is simplified.
NAME          RANGES
ROWS
 N  COST
 G  GRANGE
 L  LRANGE
 E  ERANGE
 E  PLAIN
 G  FLOOR
COLUMNS
    LOW       COST               1.0   GRANGE             1.0
    LOW       FLOOR              2.0
    HIGH      COST               2.0   GRANGE             1.0
    HIGH      LRANGE             1.0
    FIXED     COST               3.0   LRANGE             1.0
    FREE      COST              -1.0   LRANGE             1.0
    FREE      ERANGE             1.0
    NOLOW     ERANGE             1.0   PLAIN              1.0
    NOHIGH    COST               0.5   PLAIN              1.0
RHS
    RHS       GRANGE             4.0   LRANGE            20.0
    RHS       ERANGE             7.0   PLAIN              5.0
    RHS       FLOOR              6.0
RANGES
    RANGE     GRANGE             6.0   LRANGE             8.0
    RANGE     ERANGE             2.0
BOUNDS
 LO BOUND     LOW                1.5
 UP BOUND     HIGH              30.0
 FX BOUND     FIXED              2.5
 FR BOUND     FREE
 MI BOUND     NOLOW
 PL BOUND     NOHIGH
ENDATA

* Two plants supply three shops; the freight of each way is to be least.
NAME          TRANSPORT
ROWS
 N  FREIGHT
 L  SUPPLY1
 L  SUPPLY2
 G  DEMAND1
 G  DEMAND2
 G  DEMAND3
COLUMNS
    X11       FREIGHT            4.0   SUPPLY1            1.0
    X11       DEMAND1            1.0
    X12       FREIGHT            6.5   SUPPLY1            1.0
    X12       DEMAND2            1.0
    X13       FREIGHT            9.0   SUPPLY1            1.0
    X13       DEMAND3            1.0
    X21       FREIGHT            5.0   SUPPLY2            1.0
    X21       DEMAND1            1.0
    X22       FREIGHT            3.0   SUPPLY2            1.0
    X22       DEMAND2            1.0
    X23       FREIGHT            7.5   SUPPLY2            1.0
    X23       DEMAND3            1.0
RHS
    RHS       SUPPLY1          350.0   SUPPLY2          600.0
    RHS       DEMAND1          325.0   DEMAND2          300.0
    RHS       DEMAND3          275.0
ENDATA

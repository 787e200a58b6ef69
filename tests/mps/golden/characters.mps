NAME          MODÈLE
* coût en €
ROWS
 N  COÛT
 L  ÉÉÉÉÉÉÉÉ
 L  ÉÉÉÉÉÉÉÉÉ
COLUMNS
    ÄPFEL     COÛT               1.5
    ÄPFEL     ÉÉÉÉÉÉÉÉ            2.
    ÄPFEL  ÉÉÉÉÉÉÉÉÉ  3.
    Β€𝒳       ÉÉÉÉÉÉÉÉ            4.
RHS
    RHS       ÉÉÉÉÉÉÉÉ           10.
    RHS       ÉÉÉÉÉÉÉÉÉ           20.
BOUNDS
 UP BOUND     ÄPFEL               4.
 FX BOUND     Β€𝒳                 1.
ENDATA

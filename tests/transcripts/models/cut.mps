* The end of this file is missing.
NAME CUT
ROWS
 N COST
 G NEED
COLUMNS
 X COST 1 NEED 2
RHS
 RHS NEED 5

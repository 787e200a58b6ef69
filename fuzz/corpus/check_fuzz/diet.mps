* The cheapest diet that covers a week's needs of energy, protein and calcium.
* COST is the objective: the price of 100 g of each food, in cents.
NAME          DIET
ROWS
 N  COST
 G  CALORIES
 G  PROTEIN
 G  CALCIUM
 L  WEIGHT
COLUMNS
    BREAD     COST              18.0   CALORIES         250.0
    BREAD     PROTEIN            9.0   CALCIUM           30.0
    BREAD     WEIGHT             1.0
    MILK      COST              11.0   CALORIES          64.0
    MILK      PROTEIN            3.3   CALCIUM          120.0
    MILK      WEIGHT             1.0
    CHEESE    COST              95.0   CALORIES         380.0
    CHEESE    PROTEIN           25.0   CALCIUM          750.0
    CHEESE    WEIGHT             1.0
    BEANS     COST              32.0   CALORIES         120.0
    BEANS     PROTEIN            8.5   CALCIUM           55.0
    BEANS     WEIGHT             1.0
    CABBAGE   COST               9.0   CALORIES          25.0
    CABBAGE   PROTEIN            1.3   CALCIUM           40.0
    CABBAGE   WEIGHT             1.0
RHS
    RHS       CALORIES       15400.0   PROTEIN          420.0
    RHS       CALCIUM         7000.0   WEIGHT           140.0
BOUNDS
 UP BOUND     BREAD             35.0
 UP BOUND     MILK              70.0
 UP BOUND     CHEESE             7.0
 LO BOUND     CABBAGE            5.0
ENDATA

Start Template Block
Metric=1
RMV= -1.5e-3
AscendRates= 0: 3, 6: 9
Blends Available=a=b: 1/ 2/
Templatename= x
End Template Block
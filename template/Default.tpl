Start Template Block
# Constant PPO2 settings
Setpoint= 1.3
DecoSetpoint= 1.3
OCDeco=0
AutoDecoGas=0
Open Circuit=1
O2Narcotic=1
MinPPO2= .18
Maximal END= 30
MaxPPO2= 1.4
DecoPPO2= 1.62
# Altitude settings
AdeptedToHeight=1
TimeToHeight= 100
StartAltitude= 0
StartPressure= 1.01325
EndAltitude= 0
EndPressure= 1.01325
# Warning section
PPO2Low=0
PPO2High=0
MaxEnd=0
CeilingOverride= 0
# Properties
RMV= 20
DecoRMV= 15
StepSize= 3
LastStop= 3
Metric=1
# Conservatism
DepthAdjust=0
GF=1, .85, .3
# Ascend Descend Rates
AscendRates= 0: 3, 6: 9,
DescendRates= 0: 18,
# Gas Mixes
Blends Available=EAN32: 32/ 68/ 0/
Blends Available=EAN50: 50/ 50/ 0/
Blends Available=Oxygen: 100/ 0/ 0/
Blends Available=Tx21/35: 21/ 44/ 35/
Blends Available=Tx18/45: 18/ 37/ 45/
Blends Available=Tx15/55: 15/ 30/ 55/
Blends Available=Tx10/70: 10/ 20/ 70/
# ChangeGasMix
Change Gas Mixes= 6:Oxygen, 21:EAN50,
Templatename=Default.tpl
End Template Block

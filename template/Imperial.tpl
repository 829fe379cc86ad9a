Start Template Block
# Constant PPO2 settings
Setpoint= 1.3
DecoSetpoint= 1.3
OCDeco=0
AutoDecoGas=0
Open Circuit=1
O2Narcotic=1
MinPPO2= .18
Maximal END= 100
MaxPPO2= 1.4
DecoPPO2= 1.62
# Altitude settings
AdeptedToHeight=1
TimeToHeight= 100
StartAltitude= 0
StartPressure= 1
EndAltitude= 0
EndPressure= 1
# Warning section
PPO2Low=0
PPO2High=0
MaxEnd=0
CeilingOverride= 0
# Properties
RMV= .7
DecoRMV= .5
StepSize= 10
LastStop= 10
Metric=0
# Conservatism
DepthAdjust=0
GF=1, .85, .3
# Ascend Descend Rates
AscendRates= 0: 10, 20: 30,
DescendRates= 0: 60,
# Gas Mixes
Blends Available=EAN32: 32/ 68/ 0/
Blends Available=EAN50: 50/ 50/ 0/
Blends Available=Oxygen: 100/ 0/ 0/
Blends Available=Tx21/35: 21/ 44/ 35/
Blends Available=Tx18/45: 18/ 37/ 45/
Blends Available=Tx15/55: 15/ 30/ 55/
Blends Available=Tx10/70: 10/ 20/ 70/
# ChangeGasMix
Change Gas Mixes= 20:Oxygen, 70:EAN50,
Templatename=Imperial.tpl
End Template Block

Start Template Block
Templatename=Höhle€.tpl
DepthAdjust=1
TimeToHeight= 32767.5
End Template Block

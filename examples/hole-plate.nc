N5 M3     ; Start spindle clockwise (looking from above down)
N10 S6000  ; Spindle RPM
N15 G4 P60 ; wait for 60 seconds
N20 S12000 ;
N25 G4 P60 ;
N30 G20    ; Units in inch
N35 G91
N40 G0 X0Y0
N45 X0.375 Y0.375
N50 G83 Z-0.5R0.1P0.5Q0.125F4
N55 X0.875 Y1.125
N60 X0.75 Y0.75
N65 X0.75 Y-0.75
N70 X-0.75 Y-0.75
N75 X1.625 Y-0.375
N80 X0 Y2.25
N85 X-3.25 Y0
N90 G80
N95 G0 Z50;
N100 Safe height G0 X0 Y0;
N105 M30; Rewind program

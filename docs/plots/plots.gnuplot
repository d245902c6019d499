# Draws the plots on the page of the reference packages. Variables: curves, the folder of the tables that curves.m
# writes; data, the folder of the published points; images, the folder for the pictures.
set terminal pngcairo size 640,440 font "DejaVu Sans,10" linewidth 1.5
set grid linecolor rgb "#d8dde5"
set key top left
set tics nomirror
set border 3

set output images."/envelope.png"
set xlabel "temperature / K"
set ylabel "pressure / bar"
table = curves."/envelope.dat"
plot [130:310] [0:] \
    table index 0 using 1:($2/1e5) with lines linecolor rgb "#b03030" title "dew points", \
    table index 1 using 1:($2/1e5) with lines linecolor rgb "#2050a0" title "bubble points", \
    table index 3 using 1:($2/1e5) with lines linecolor rgb "#909090" dashtype 2 title "95, 80 and 50 % vapor", \
    table index 4 using 1:($2/1e5) with lines linecolor rgb "#909090" dashtype 2 notitle, \
    table index 5 using 1:($2/1e5) with lines linecolor rgb "#909090" dashtype 2 notitle, \
    table index 2 using 1:($2/1e5) with points pointtype 7 linecolor rgb "black" title "critical point"

set output images."/methanol_water.png"
set xlabel "mole fraction of methanol"
set ylabel "pressure / kPa"
table = curves."/methanol_water.dat"
points = data."/methanol_water_333K.dat"
plot [0:1] [0:] \
    table using 1:($2/1e3) with lines linecolor rgb "#2050a0" title "boiling liquid, by NRTL", \
    table using 3:($2/1e3) with lines linecolor rgb "#b03030" title "vapor, by NRTL", \
    points using 2:1 with points pointtype 7 linecolor rgb "#2050a0" title "boiling liquid, measured", \
    points using 3:1 with points pointtype 6 linecolor rgb "#b03030" title "vapor, measured"

set key top right
set output images."/benzene_toluene.png"
set xlabel "mole fraction of benzene"
set ylabel "temperature / K"
table = curves."/benzene_toluene.dat"
points = data."/benzene_toluene_101kPa.dat"
plot [0:1] [350:386] \
    table using 1:2 with lines linecolor rgb "#2050a0" title "boiling liquid, Peng-Robinson", \
    table using 3:2 with lines linecolor rgb "#b03030" title "vapor, Peng-Robinson", \
    points using 2:($1+273.15) with points pointtype 7 linecolor rgb "#2050a0" title "boiling liquid, published", \
    points using 3:($1+273.15) with points pointtype 6 linecolor rgb "#b03030" title "vapor, published"

set output images."/propane.png"
set xlabel "temperature / K"
set ylabel "density of the boiling liquid / (mol / l)"
table = curves."/propane.dat"
plot [100:370] [4:18] \
    table index 0 using 1:($2/1e3) with lines linecolor rgb "#2050a0" title "Peng-Robinson", \
    table index 1 using 1:($2/1e3) with lines linecolor rgb "#b03030" title "Soave-Redlich-Kwong", \
    table index 2 using 1:($2/1e3) with lines linecolor rgb "black" dashtype 2 title "correlation of measurements"

# Draws the directions of the waves at a point, and their spectrum. Needs the variable `folder`.
set terminal pngcairo size 1400,700 font "DejaVu Sans,11"
set output folder."/point.png"
set datafile separator ","
directions = folder."/point_directions.csv"
spectrum = folder."/point_spectrum.csv"

stats directions skip 1 using 2 nooutput name "D_"
sectors = int(D_records)
array share[sectors]
array asked[sectors]
stats directions skip 1 using (share[int($0) + 1] = $2) nooutput
stats directions skip 1 using (asked[int($0) + 1] = $3) nooutput
# Sector 0 is centred at angle 0.
sector(angle) = int(floor(angle * sectors / (2 * pi) + 0.5) + sectors) % sectors

set multiplot layout 1,2
set polar
set title "Where the waves go to: share of the variance in sectors of 10 degrees"
set border 0
set tics front
unset xtics
unset ytics
unset raxis
set rtics axis 0.05 format "%.2f"
set rrange [0:0.2]
set grid polar pi / 6
set ttics ("0°" 0, "30°" 30, "60°" 60, "90°" 90, "180°" 180, "-90°" 270, "-60°" 300, "-30°" 330)
set size square
set trange [0:2 * pi]
set samples 3601
set key outside bottom center horizontal
set style fill solid 0.4 noborder
plot share[sector(t) + 1] with filledcurves lc "#2166ac" title "at the point", \
     asked[sector(t) + 1] with lines lw 2 lc "#b2182b" title "asked for"

unset polar
set title "Variance density at the point"
set border
unset grid
unset rtics
unset ttics
set size nosquare
set xlabel "frequency (Hz)"
set ylabel "density (m^2s)"
set xtics
set ytics
set xrange [0:2]
set yrange [0:*]
set key inside top right vertical
plot spectrum skip 1 using 1:3 with filledcurves y1=0 lc "#2166ac" title "at the point", \
     spectrum skip 1 using 1:4 with lines lw 2 lc "#b2182b" title "asked for"
unset multiplot

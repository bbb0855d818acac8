# Draws the motion of the paddles and the spectrum that they generate. Needs the variable `folder`.
set terminal pngcairo size 1400,1000 font "DejaVu Sans,11"
set output folder."/basin.png"
set datafile separator ","
signals = folder."/group_signals.csv"
oblique = folder."/oblique_signals.csv"
fronts = folder."/group_fronts.csv"

stats signals skip 1 using 1 nooutput name "T_"
step = T_max / (T_records - 1)
stats signals skip 1 matrix every 1::1 nooutput name "S_"
stats oblique skip 1 matrix every 1::1 nooutput name "O_"
g = S_max > -S_min ? S_max : -S_min
o = O_max > -O_min ? O_max : -O_min

set multiplot layout 2,2
set palette defined (-1 "#2166ac", 0 "#f7f7f7", 1 "#b2182b")
set xlabel "time (s)"
set ylabel "paddle"
set cblabel "drive (rad)"
set yrange [0.5:S_size_x + 0.5]
unset key

set title "Focused group: drive signals of all paddles"
set xrange [0:T_max]
set cbrange [-g:g]
plot signals skip 1 matrix every 1::1 using ($2 * step):1:3 with image

set title "Oblique wave between side walls: drive signals, first 10 s"
set xrange [0:10]
set cbrange [-o:o]
plot oblique skip 1 matrix every 1::1 using ($2 * step):1:3 with image

set title "Focused group: drive of the middle paddle"
set xrange [0:T_max]
set yrange [*:*]
set ylabel "drive (rad)"
plot signals skip 1 using 1:(column((S_size_x + 3) / 2)) with lines lw 1.5

set title "Focused group: amplitude of each harmonic"
set xlabel "frequency (Hz)"
set ylabel "amplitude (mm)"
set xrange [0:*]
set yrange [0:*]
plot fronts skip 1 using 1:($2 * 1000) with impulses lw 2
unset multiplot

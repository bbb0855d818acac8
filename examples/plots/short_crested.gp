# Draws the motion of the paddles for a short-crested sea, and the waves of that sea. Needs the
# variable `folder`.
set terminal pngcairo size 1400,1000 font "DejaVu Sans,11"
set output folder."/short_crested.png"
set datafile separator ","
signals = folder."/short_crested_signals.csv"
fronts = folder."/short_crested_fronts.csv"

stats signals skip 1 using 1 nooutput name "T_"
step = T_max / (T_records - 1)
stats signals skip 1 matrix every 1::1 nooutput name "S_"
s = S_max > -S_min ? S_max : -S_min

# The requested spread: s_max 10 at the peak of 0.6 Hz, after Goda and Suzuki. The deviation of
# cos^2s(d/2) is about sqrt(2 / (1 + s)).
exponent(f) = 10 * (f < 0.6 ? (f / 0.6)**5 : (f / 0.6)**(-2.5))
deviation(f) = sqrt(2 / (1 + exponent(f))) * 180 / pi

set multiplot layout 2,2
set palette defined (-1 "#2166ac", 0 "#f7f7f7", 1 "#b2182b")
unset key

set title "Short-crested sea: drive signals of all paddles, first 64 s"
set xlabel "time (s)"
set ylabel "paddle"
set cblabel "drive (rad)"
set xrange [0:64]
set yrange [0.5:S_size_x + 0.5]
set cbrange [-s:s]
plot signals skip 1 matrix every 1::1 using ($2 * step):1:3 with image

set title "Direction of each harmonic; the area of a dot is its energy"
set xlabel "frequency (Hz)"
set ylabel "direction (deg)"
set xrange [0.35:1.45]
set yrange [-75:75]
set ytics 25
set key center bottom
plot fronts skip 1 using 1:($3 * 180 / pi):($2 * 500) with points pt 7 ps variable lc rgb "#802166ac" notitle, \
     deviation(x) lw 1.5 lc rgb "#b2182b" title "deviation of the law, uncut", \
     -deviation(x) lw 1.5 lc rgb "#b2182b" notitle
unset key

set title "Drive of the middle paddle"
set xlabel "time (s)"
set ylabel "drive (rad)"
set xrange [0:T_max]
set yrange [*:*]
set ytics auto
plot signals skip 1 using 1:(column((S_size_x + 3) / 2)) with lines lw 1

set title "Amplitude of each harmonic"
set xlabel "frequency (Hz)"
set ylabel "amplitude (mm)"
set xrange [0.35:1.45]
set yrange [0:*]
plot fronts skip 1 using 1:($2 * 1000) with impulses
unset multiplot

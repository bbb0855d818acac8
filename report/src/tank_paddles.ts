// The paddles of a tank, as lines along their faces, with the numbers of the first and last.
import type { Plan } from './data';
import type { TankOptions } from './tank_drawing';
import { shortened, type Pen } from './tank_pen';

export function drawPaddles(
  pen: Pen,
  plan: Plan,
  place: (x: number, y: number) => [number, number],
  options: TankOptions,
): void {
  plan.banks.forEach((bank, index) => {
    const { x, y, angle, number } = bank.paddles;
    for (let i = 0; i < x.length; ++i) {
      const chosen = options.chosen?.bank === index && options.chosen.paddle === i;
      // The face is square to the normal. Faces of 1,000 paddles stay apart by a fine gap.
      const along = [-Math.sin(angle[i]), Math.cos(angle[i])];
      const half = 0.46 * bank.paddle_width;
      const ends: [number, number][] = [
        place(x[i] - half * along[0], y[i] - half * along[1]),
        place(x[i] + half * along[0], y[i] + half * along[1]),
      ];
      pen.line(ends, chosen ? 9 : 5);
    }
    if (options.names !== false && x.length) label(pen, bank.name, number, x, y, angle, place);
  });
}

// Name and numbers stand in the water, before the middle of the bank.
function label(
  pen: Pen,
  name: string,
  number: number[],
  x: number[],
  y: number[],
  angle: number[],
  place: (x: number, y: number) => [number, number],
): void {
  const middle = Math.floor(x.length / 2);
  const [px, py] = place(x[middle], y[middle]);
  const dx = Math.cos(angle[middle]);
  const dy = -Math.sin(angle[middle]); // on the canvas, y grows downwards
  const numbers = number.length > 1 ? ` ${number[0]} to ${number[number.length - 1]}` : '';
  const align = Math.abs(dx) < 0.5 ? 'center' : dx > 0 ? 'left' : 'right';
  const baseline = Math.abs(dy) < 0.5 ? 'middle' : dy > 0 ? 'top' : 'bottom';
  pen.text(shortened(name, 24) + numbers, px + 9 * dx, py + 9 * dy, align, baseline);
}

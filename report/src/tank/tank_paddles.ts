// The paddles of a tank, as lines along their faces, with the numbers of the first and last.
import type { Plan } from '../data/data';
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

// Name and numbers stand in the water along the middle of the bank, readable from below or right.
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
  const normal = [Math.cos(angle[middle]), -Math.sin(angle[middle])]; // on the canvas, y grows downwards
  let turn = Math.atan2(normal[1], normal[0]) + Math.PI / 2;
  if (turn > Math.PI / 2 + 1e-6) turn -= Math.PI;
  if (turn > 1e-6 && turn > Math.PI / 2 - 1e-6) turn -= Math.PI;
  // Whether the water is on the lower side of the text.
  const below = -normal[0] * Math.sin(turn) + normal[1] * Math.cos(turn) > 0;
  const numbers = number.length > 1 ? ` ${number[0]} to ${number[number.length - 1]}` : '';
  pen.ctx.save();
  pen.ctx.translate(px + 7 * normal[0], py + 7 * normal[1]);
  pen.ctx.rotate(turn);
  pen.text(shortened(name, 24) + numbers, 0, 0, 'center', below ? 'top' : 'bottom');
  pen.ctx.restore();
}

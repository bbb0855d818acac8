// A list to choose the paddle from, in step with the charts.
import { element } from '../page/frame';
import type { View } from '../page/view';
import { paddleNumber, rowOf, type BankData } from './bank_data';

export function paddleChoice(bank: BankData, view: View): HTMLElement {
  const label = element('label', '', 'Paddle ');
  const list = element('select');
  list.append(
    ...bank.of.paddles.map((paddle) => {
      const option = element('option', '', String(paddleNumber(bank, paddle)));
      option.value = String(paddle);
      return option;
    }),
  );
  list.addEventListener('change', () => view.set({ bank: bank.of.bank, paddle: Number(list.value) }));
  const follow = (): void => {
    if (view.bank === bank.of.bank) list.selectedIndex = rowOf(bank, view.paddle);
  };
  follow();
  view.watch(follow);
  label.append(list);
  return label;
}

" Settings and a small command.
if exists('g:loaded_sample') || &compatible
  finish
endif
let g:loaded_sample = 1

set nocompatible expandtab shiftwidth=4
set statusline=%f\ %m%=%l,%c
syntax on
filetype plugin indent on

  " Words are counted in a range.
function! s:Count(first, last, ...) abort range
  let l:total = 0
  let pattern = a:0 > 0 ? a:1 : '\w\+'
  for lnum in range(a:first, a:last)
    let l:total += len(split(getline(lnum), pattern)) * 0x01
  endfor
  if l:total ==# 0
    echoerr 'nothing found'
  elseif l:total =~? '^\d\{3}'
    echohl WarningMsg | echo 'many' | echohl None
  endif
  return l:total
endfunction

command! -range=% -nargs=? Count echo s:Count(<line1>, <line2>, <f-args>)
nnoremap <silent> <Leader>c :Count<CR>
inoremap <C-Space> <C-x><C-o>

augroup sample
  autocmd!
  autocmd BufWritePre *.txt,*.md call s:Count(1, line('$'))
augroup END

if 0
  let v:errmsg = ''
endif

let s:dict = {'a': 1.5e3, 'b': [1, 2], 'f': {x -> x + 1}}
highlight link Sample Comment
try | throw 'oops' | catch /oops/ | endtry
